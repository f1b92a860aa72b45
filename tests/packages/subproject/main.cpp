// Links the framework's stand-in, and through it the other platforms, and nothing else.
#include <TavrikGraph/Executor/TypeTranslation.h>

int main() { return Pelmor::Library().findType("Rigging::Module::Pins") ? 0 : 1; }
