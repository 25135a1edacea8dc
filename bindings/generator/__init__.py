"""Makes api.json and every language's low-level file from the public C header."""
