export const sizes = ["S", "M", "L"];
