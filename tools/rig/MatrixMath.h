// Arithmetic on the host's matrices, which multiply row vectors from the right: a point goes
// through `multiply(a, b)` as through a and then b, and the last row holds the translation.
#pragma once

#include <OpenVornik/VMatrix.h>

namespace Tolvane::Tools {

VMatrix multiply(const VMatrix& first, const VMatrix& then);

// The identity where there is no inverse, so that a joint that is flattened to nothing does not
// spread NaNs.
VMatrix inverse(const VMatrix& matrix);

}  // namespace Tolvane::Tools
