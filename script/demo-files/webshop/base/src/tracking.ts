export function trackClick(name: string): void {
  navigator.sendBeacon("/click", name);
}
