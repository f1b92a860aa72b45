// A library that another one needs, and that no loader finds.
extern "C" __attribute__((visibility("default"))) int isGone() { return 0; }
