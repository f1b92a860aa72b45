#include <Pelmor/UntypedTypeRep.h>

#include <limits>
#include <new>

namespace Pelmor::Internal {
namespace {

constexpr std::size_t kMaxBytes = std::numeric_limits<std::ptrdiff_t>::max();

}  // namespace

void* UntypedTypeRep::allocate(std::uint64_t count) const {
    if (elementSize != 0 && count > kMaxBytes / elementSize) throw std::bad_alloc();
    const std::size_t bytes = count * elementSize;
    if (alignment() <= __STDCPP_DEFAULT_NEW_ALIGNMENT__) return ::operator new(bytes);
    return ::operator new (bytes, std::align_val_t{alignment()});
}

void UntypedTypeRep::deallocate(void* buffer, std::uint64_t) const noexcept {
    if (alignment() <= __STDCPP_DEFAULT_NEW_ALIGNMENT__)
        ::operator delete(buffer);
    else
        ::operator delete (buffer, std::align_val_t{alignment()});
}

}  // namespace Pelmor::Internal
