// A translation library whose factory returns null.
extern "C" __attribute__((visibility("default"))) void* createTavrikTypeTranslation() {
    return nullptr;
}
