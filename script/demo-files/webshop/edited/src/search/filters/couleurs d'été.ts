export const colors = ["rouge", "bleu", "vert foncé"];
