import { Country, freeShippingFrom, shippingRate } from "./shipping";
import { Line } from "./order_line";

/** The sum of all lines in cents, without shipping. */
export function subtotal(lines: Line[]): number {
  return lines.reduce((sum, line) => sum + line.price * line.quantity, 0);
}

export function shipping(sum: number, country: Country): number {
  return sum >= freeShippingFrom(country) ? 0 : shippingRate(country);
}

export function total(lines: Line[], country: Country): number {
  const sum = subtotal(lines);
  return sum + shipping(sum, country);
}
