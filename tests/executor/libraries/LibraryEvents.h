// How the libraries that the tests load tell what becomes of them.
#pragma once

// The test binary's.
extern "C" __attribute__((visibility("default"))) void noteLibraryEvent(const char* what);

// A library that has one, with static storage, notes its own unloading.
struct UnloadingNote {
    ~UnloadingNote() { noteLibraryEvent("unloaded"); }
};
