// A library that is none of translations.
extern "C" __attribute__((visibility("default"))) void somethingElse() {}
