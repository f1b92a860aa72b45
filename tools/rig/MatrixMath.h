// Arithmetic on the host's matrices, which multiply row vectors from the right: `multiply(a, b)`
// transforms a point by a and then by b, and the last row holds the translation.
#pragma once

#include <OpenVornik/VMatrix.h>

namespace Tolvane::Tools {

VMatrix multiply(const VMatrix& first, const VMatrix& then);

// The identity if there is no inverse, so that a joint that is scaled to nothing does not fill its
// children with NaNs.
VMatrix inverse(const VMatrix& matrix);

}  // namespace Tolvane::Tools
