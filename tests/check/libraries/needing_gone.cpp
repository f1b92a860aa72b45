// What makes a translation library need the one that is gone.
extern "C" int isGone();

int needGone() { return isGone(); }
