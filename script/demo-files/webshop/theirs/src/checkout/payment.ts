export const methods = ["card", "invoice", "transfer"];

export function defaultMethod(): string {
  return methods[0];
}
