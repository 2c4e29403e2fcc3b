export interface Line {
  article: string;
  price: number;
  quantity: number;
}
