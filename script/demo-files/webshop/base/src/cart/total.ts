import { Line } from "./line";

/** The sum of all lines in cents, without shipping. */
export function subtotal(lines: Line[]): number {
  let sum = 0;
  for (const line of lines) {
    sum += line.price * line.quantity;
  }
  return sum;
}

export function shipping(sum: number): number {
  return sum > 5000 ? 0 : 490;
}

export function total(lines: Line[]): number {
  const sum = subtotal(lines);
  return sum + shipping(sum);
}
