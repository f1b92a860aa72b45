#include "tools/process/Place.h"

namespace Tolvane::Tools {
namespace {

std::string activity(const Place& place) {
    const std::string port = "port " + place.port;
    switch (place.stage) {
        case Stage::Reading:
            return "while it is read";
        case Stage::Loading:
            return "while it is loaded";
        case Stage::Names:
            return "while it is asked for its names";
        case Stage::Ports:
            return "while it is given " + (place.port.empty() ? std::string("ports") : port);
        case Stage::Evaluating:
            return "while " + (place.port.empty() ? std::string("it") : port) + " is evaluated";
        case Stage::Releasing:
            return "while it is released";
        case Stage::Unloading:
            return "while it is unloaded";
        default:
            return std::string("at the stage of ") + wordFor(place.stage);
    }
}

}  // namespace

std::string inWords(const Place& place) {
    return activity(place) + (place.frame ? " in frame " + std::to_string(*place.frame) : "");
}

}  // namespace Tolvane::Tools
