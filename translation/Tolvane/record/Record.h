// All that the page of a record includes: what a page is, and the types that members are made of.
#pragma once

#include <Math/double4x4.h>
#include <Pelmor/Array.h>
#include <Pelmor/DefaultClass.h>
#include <Pelmor/Ptr.h>
#include <Pelmor/String.h>
#include <Tavrik/Object.h>
#include <Tolvane/record/Elements.h>
#include <Tolvane/record/Page.h>

#include <tuple>
