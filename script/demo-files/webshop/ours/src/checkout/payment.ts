export const methods = ["card", "twint", "invoice"];

export function defaultMethod(): string {
  return methods[0];
}
