// A translation that passes every call on to another one, and measures the processor time that
// those of an evaluation take.
#pragma once

#include "tools/node/ForwardingTranslation.h"

#include <chrono>
#include <map>

namespace Tolvane::Tools {

// The processor time of the calling thread, which stands still while the thread waits.
std::chrono::nanoseconds processorTime() noexcept;

class TimedTranslation : public ForwardingTranslation {
public:
    // `translation` must outlive this.
    explicit TimedTranslation(TypeTranslation& translation);

    // How long the last translation for the port took whose plug this is: that very object, and not
    // a copy. The clock's own time is taken off.
    std::chrono::nanoseconds timeOf(const VPlug& plug) const;

    bool translateFromHost(
        const Pelmor::Type& type, Pelmor::AnyValue& value,
        const TavrikGraph::Executor::HostContext& context) const noexcept override;
    bool translateToHost(const Pelmor::AnyValue& value,
                         const TavrikGraph::Executor::HostContext& context) const noexcept override;

private:
    template <typename Translate>
    bool timed(const VPlug* plug, Translate translate) const noexcept;

    std::chrono::nanoseconds m_clockTime;
    mutable std::map<const VPlug*, std::chrono::nanoseconds> m_times;
};

}  // namespace Tolvane::Tools
