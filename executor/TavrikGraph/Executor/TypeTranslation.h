// The interface of a translation library: it says which graph types it carries between the host and
// the graph, gives host nodes their attributes, and converts values. The library exports, with C
// linkage and without arguments, a factory named `createTavrikTypeTranslation` that returns a new
// object, which its caller disposes of with `release`.
//
// The order of the virtual operations is the calling contract between separately built libraries;
// it never changes. None of them lets an exception out.
//
// Headers say in brackets where a declaration, or all that a header declares, may be used:
//
//   [any thread]         on any; several at once may use one object as long as none changes it
//   [evaluation thread]  on the one that evaluates the node; each node has one at a time
//   [edit thread]        on the host's main thread, while no node is evaluated
#pragma once

#include <Pelmor/AnyValue.h>
#include <Pelmor/Array.h>
#include <Pelmor/EntityIndexedList.h>
#include <Pelmor/Library.h>
#include <Pelmor/String.h>
#include <Pelmor/Type.h>
#include <TavrikGraph/Executor/Export.h>
#include <TavrikGraph/Executor/HostContext.h>
#include <TavrikGraph/Executor/NodeEditContext.h>
#include <TavrikGraph/Executor/PortDirection.h>

#include <cstdint>

namespace TavrikGraph::Executor {

class TAVRIKGRAPH_API TypeTranslation {
public:
    // The host's record of the plug-in that a translation may extend; opaque to the framework.
    struct PluginHostData;

    // `name` is what people are shown. [any thread]
    explicit TypeTranslation(Pelmor::String name) noexcept;
    TypeTranslation(const TypeTranslation&) = delete;
    TypeTranslation& operator=(const TypeTranslation&) = delete;
    // Reached by `release` alone. [any thread]
    virtual ~TypeTranslation();

    // Destroys the object and frees it. Does nothing on a null object. [any thread]
    virtual void release() noexcept = 0;

    // Adds those types of `library` that the translation carries. The default goes by
    // `getSupportedTypeNames`. [any thread]
    virtual void getSupportedTypes(const Pelmor::Library& library,
                                   Pelmor::EntityIndexedList<Pelmor::Type>& types) const noexcept;

    // Replaces the content of `names` by the fully qualified names of the types that can be carried
    // from the host. [any thread]
    virtual void getSupportedTypeNames(Pelmor::Array<Pelmor::String>& names) const noexcept = 0;

    // Reads the host's data of the port, whose type is `type`, into `value`, and replaces what that
    // held. False if there is no value. [evaluation thread]
    virtual bool translateFromHost(const Pelmor::Type& type, Pelmor::AnyValue& value,
                                   const HostContext& context) const noexcept = 0;

    // Writes `value` into the host's data of the port. False if the value's type is not carried; a
    // failure that the translation notices while writing is shown to the user. [evaluation thread]
    virtual bool translateToHost(const Pelmor::AnyValue& value,
                                 const HostContext& context) const noexcept = 0;

    // Gives the host node an attribute for a new port. False if it did not, for a reason that was
    // shown to the user. `portIndex` is the port's place among those of its graph, `portFlags`
    // are the framework's. [edit thread]
    virtual bool portAdded(const Pelmor::String& portName, PortDirection direction,
                           const Pelmor::Type& type, std::uint32_t portIndex,
                           std::uint32_t portFlags, NodeEditContext* context) const noexcept = 0;

    // The framework removes and renames host attributes itself, and tells the translation here, in
    // case it keeps something for a port. False refuses the change; the defaults return true.
    // [edit thread]
    virtual bool portRemoved(const Pelmor::String& nodeName,
                             const Pelmor::String& portName) const noexcept;
    virtual bool portRenamed(const Pelmor::String& nodeName, const Pelmor::String& oldPortName,
                             const Pelmor::String& newPortName) const noexcept;

    // Called when the host loads and unloads the framework's own plug-in, for a translation that
    // brings host nodes or data types. False if that failed. The defaults have nothing to register
    // and return true. [edit thread]
    virtual bool registerHostPlugins(const PluginHostData* host) const noexcept;
    virtual bool unregisterHostPlugins(const PluginHostData* host) const noexcept;

    // What people are shown. [any thread]
    const Pelmor::String& name() const noexcept { return m_name; }

private:
    Pelmor::String m_name;
};

}  // namespace TavrikGraph::Executor
