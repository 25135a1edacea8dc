// Generated from the header by bindings/generate, not to be edited.
export type Model = 'S210' | 'S300' | 'S310X' | 'R800' | 'M450';
