#include "tools/rig/Rig.h"

#include "tools/rig/MatrixMath.h"

namespace Tolvane::Tools {
namespace {

VMatrix chained(const std::vector<Link>& links, double tick) {
    VMatrix product;
    for (const Link& link : links)
        product = multiply(product, link.channel ? link.channel->sample(tick) : link.rest);
    return product;
}

}  // namespace

VMatrix Joint::local(double tick) const {
    if (channel) return channel->sample(tick);
    return parent && !links.empty() ? chained(links, tick) : restLocal;
}

VMatrix Joint::above(double tick) const {
    return links.empty() || parent ? aboveRoot : chained(links, tick);
}

void poseAtRest(Rig& rig) {
    for (Joint& joint : rig.joints) {
        const VMatrix& above = joint.parent ? rig.joints[*joint.parent].restWorld : joint.aboveRoot;
        joint.restWorld = multiply(joint.restLocal, above);
    }
}

}  // namespace Tolvane::Tools
