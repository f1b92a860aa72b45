// All that the page of a record includes: what a page is, and the types that members are made of.
#pragma once

#include "record/Elements.h"
#include "record/Page.h"

#include <Math/double4x4.h>
#include <Pelmor/Array.h>
#include <Pelmor/DefaultClass.h>
#include <Pelmor/Ptr.h>
#include <Pelmor/String.h>
#include <Tavrik/Object.h>

#include <tuple>
