// A library that is no translation library: it does not export the factory.
extern "C" __attribute__((visibility("default"))) void somethingElse() {}
