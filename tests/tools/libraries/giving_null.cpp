// A translation library whose factory has nothing to give.
extern "C" __attribute__((visibility("default"))) void* createTavrikTypeTranslation() {
    return nullptr;
}
