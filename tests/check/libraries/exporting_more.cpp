// What a translation library exports besides its factory.
extern "C" __attribute__((visibility("default"))) int anotherFunction() { return 0; }
