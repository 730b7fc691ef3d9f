export const value = 7;
