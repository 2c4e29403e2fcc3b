export const methods = ["card", "invoice"];

export function defaultMethod(): string {
  return methods[0];
}
