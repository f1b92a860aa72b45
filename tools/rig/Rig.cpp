#include "tools/rig/Rig.h"

#include "tools/rig/MatrixMath.h"

namespace Tolvane::Tools {

VMatrix matrixOf(const Links& links, double tick) {
    VMatrix product;
    for (const Link& link : links)
        product = multiply(product, link.channel ? link.channel->sample(tick) : link.rest);
    return product;
}

VMatrix Joint::local(double tick) const {
    if (channel) return channel->sample(tick);
    return links.empty() ? restLocal : matrixOf(links, tick);
}

void poseAtRest(Rig& rig) {
    for (Joint& joint : rig.joints) {
        const VMatrix& above = joint.parent ? rig.joints[*joint.parent].restWorld : joint.aboveRoot;
        joint.restWorld = multiply(joint.restLocal, above);
    }
}

std::vector<VMatrix> poseCarriers(const Rig& rig, double tick) {
    std::vector<VMatrix> worlds;
    for (const Carrier& carrier : rig.carriers) {
        const VMatrix local = matrixOf(carrier.links, tick);
        worlds.push_back(carrier.parent ? multiply(local, worlds[*carrier.parent]) : local);
    }
    return worlds;
}

}  // namespace Tolvane::Tools
