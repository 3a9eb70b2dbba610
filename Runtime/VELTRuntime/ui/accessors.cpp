#include "VELTRuntime/ui/accessors.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/main_thread.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/string.h"

namespace velt::ui {

namespace {

id zero(ValueKind kind) {
    switch (kind) {
    case ValueKind::Boolean: return VELT_ID(BOOL{0});
    case ValueKind::Integer: return VELT_ID(0L);
    case ValueKind::Unsigned: return VELT_ID(0UL);
    case ValueKind::Double: return VELT_ID(0.0);
    case ValueKind::Single: return VELT_ID(0.0F);
    case ValueKind::Point: return VELT_ID(NSPoint{});
    case ValueKind::Size: return VELT_ID(NSSize{});
    case ValueKind::Rect: return VELT_ID(NSRect{});
    case ValueKind::Text:
    case ValueKind::MutableText:
    case ValueKind::RichText:
    case ValueKind::Object: return nil;
    }
    return nil;
}

/// Every wrapper's first step; without a call on the main thread.
void begin(const Wrapper& wrapper) {
    if (threadPlace != ThreadPlace::Main) [[unlikely]]
        requireMainThread(wrapper.name);
}

/// Sends a wrapper's message. A row has as many arguments as its selector.
VELT_ALWAYS_INLINE inline id sendFrom(const Wrapper& wrapper, const id& receiver, std::span<const id> arguments) {
    assert(Selector(wrapper.site).argumentCount() == arguments.size());
    if (const NSObject* object = receiver.object(); VELT_LIKELY(object) && VELT_LIKELY(!object->isAttached())) {
        const Method* method = wrapper.site.knownMethod(*object);
        if (VELT_LIKELY(method)) return method->call(*method, receiver, arguments.data());
    }
    return wrapper.site.sendAnew(receiver, arguments);
}

}  // namespace

id get(const id& receiver, const Wrapper& wrapper, ValueKind kind) {
    begin(wrapper);
    if (receiver.isNil()) return zero(kind);
    if (kind != ValueKind::Text && kind != ValueKind::MutableText) return sendFrom(wrapper, receiver, {});
    id text = sendFrom(wrapper, receiver, {});
    if (!isString(text)) return text;
    NSMutableString* const shown = &asMutableString(text);
    return kind == ValueKind::MutableText ? VELT_ID(shown) : VELT_ID(static_cast<NSString*>(shown));
}

id converted(const id& value, ValueKind kind) {
    switch (kind) {
    case ValueKind::Boolean: return VELT_ID(static_cast<BOOL>(VELT_CBOOL(value)));
    case ValueKind::Integer:
    case ValueKind::Unsigned: return VELT_ID(static_cast<long>(VELT_CBYTE(value)));
    case ValueKind::Double: return VELT_ID(VELT_CDOUBLE(value));
    case ValueKind::Single: return VELT_ID(VELT_CSINGLE(value));
    case ValueKind::Text:
    case ValueKind::MutableText: return VELT_CSTRING(value);
    case ValueKind::RichText: return VELT_CATTRIBUTEDSTRING(value);
    case ValueKind::Point: return VELT_ID(VELT_CNSPOINT(value));
    case ValueKind::Size: return VELT_ID(VELT_CNSSIZE(value));
    case ValueKind::Rect: return VELT_ID(VELT_CNSRECT(value));
    case ValueKind::Object: return value;
    }
    return value;
}

id pass(const id& receiver, const Wrapper& wrapper, const id& argument) {
    begin(wrapper);
    return sendFrom(wrapper, receiver, std::span<const id>(&argument, 1));
}

id set(const id& receiver, const Wrapper& wrapper, ValueKind kind, const id& value) {
    pass(receiver, wrapper, converted(value, kind));
    return nil;
}

id command(const id& receiver, const Wrapper& wrapper) {
    begin(wrapper);
    sendFrom(wrapper, receiver, {});
    return nil;
}

void connectAction(const id& object, const id& owner, const char* action) {
    if (!methodNamed(owner, action)) return;
    send(object, VELT_SELECTOR("setAction:"), string(std::string_view(action)));
    send(object, VELT_SELECTOR("setTarget:"), owner);
}

id bindAction(const char* function, const id& object, const id& name, std::string_view setter) {
    requireMainThread(function);
    const std::string given = utf8(VELT_CSTRING(name));
    const id target = send(object, VELT_SELECTOR("target"));
    for (const std::string& action : {given + ":", given}) {
        if (action.empty() || !respondsTo(target, Selector::named(action))) continue;
        send(object, setter, string(action));
        break;
    }
    return nil;
}

}  // namespace velt::ui
