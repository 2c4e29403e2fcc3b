export type Country = "CH" | "DE" | "AT";

const rates: Record<Country, number> = { CH: 690, DE: 490, AT: 550 };

export function shippingRate(country: Country): number {
  return rates[country];
}

export function freeShippingFrom(country: Country): number {
  return country === "CH" ? 8000 : 5000;
}
