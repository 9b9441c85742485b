namespace quorvel { int placeholder() { return 0; } }
