// All that a translation library includes: what its records' pages are made of, the walks that
// carry them, the object that it hands to the framework, and the factory's declaration.
#pragma once

#include <Tolvane/Factory.h>
#include <Tolvane/RecordTranslation.h>
#include <Tolvane/convert/Read.h>
#include <Tolvane/convert/Write.h>
#include <Tolvane/record/Record.h>
#include <Tolvane/record/RecordList.h>
