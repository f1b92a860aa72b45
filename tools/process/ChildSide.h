// What the work in a child process has of its surroundings: it notes what it is at, so that the
// parent can follow it and tell where it was if it ends badly, and it learns whether the code that
// it calls has printed anything.
#pragma once

#include "tools/process/Capture.h"
#include "tools/process/Place.h"
#include "tools/process/SharedBlock.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace Tolvane::Tools {

class ChildSide {
public:
    struct Print {
        Place place;
        std::string text;
    };

    ChildSide(SharedBlock& block, const Capture& capture) : m_block(block), m_capture(capture) {}

    // Each is a sign of progress, and costs a few stores. A new stage has no port and no frame yet,
    // a new frame no port.
    void enter(Stage stage) noexcept;
    void atFrame(std::size_t frame) noexcept;
    void atPort(std::string_view port) noexcept;
    // How much of the whole work is done. `total` is not 0.
    void progress(std::size_t done, std::size_t total) noexcept;

    // Keeps what was printed since the last call, and where; only the first such print counts.
    void noticePrints() noexcept;
    const std::optional<Print>& firstPrint() const noexcept { return m_firstPrint; }
    // What was printed up to now was asked for.
    void allowPrints();
    const std::string& allowedPrints() const noexcept { return m_allowedText; }
    // The same, which is forgotten.
    std::string takeAllowedPrints() noexcept { return std::exchange(m_allowedText, {}); }

private:
    Place place() const;

    SharedBlock& m_block;
    const Capture& m_capture;
    std::size_t m_allowed = 0;
    std::string m_allowedText;
    std::optional<Print> m_firstPrint;
};

}  // namespace Tolvane::Tools
