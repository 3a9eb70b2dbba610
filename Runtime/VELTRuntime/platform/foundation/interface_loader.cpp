#include "VELTRuntime/platform/foundation/interface_loader.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/file_contents.h"
#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/platform/object/providers.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

#include <mutex>
#include <optional>

namespace velt {

namespace {

struct Makers {
    std::mutex mutex;
    std::unordered_map<std::string, InterfaceMaker> byClass;
    InterfaceArranger arranger = nullptr;
};
Makers& makers() {
    static Makers& all = *new Makers;
    return all;
}

InterfaceMaker makerOf(const std::string& className) {
    const std::lock_guard lock(makers().mutex);
    const auto found = makers().byClass.find(className);
    return found == makers().byClass.end() ? nullptr : found->second;
}

InterfaceArranger arranger() {
    const std::lock_guard lock(makers().mutex);
    return makers().arranger;
}

/// What stops the loading.
class LoadFailure : public std::runtime_error {
public:
    LoadFailure(const XmlElement& where, const std::string& what)
        : std::runtime_error("line " + std::to_string(where.line) + ": " + what) {}
};

const std::string& textOf(const XmlElement& element, std::string_view child) {
    const XmlElement* found = element.child(child);
    static const std::string& none = *new std::string;
    return found ? found->text : none;
}

double numberIn(const XmlElement& element, std::string_view child) {
    return VELT_CDOUBLE(velt::string(textOf(element, child)));
}

/// The value of a property; nothing for kinds that only widgets know.
std::optional<id> valueOf(const XmlElement& value) {
    const id text = velt::string(value.text);
    if (value.name == "string" || value.name == "cstring") return text;
    if (value.name == "bool") return VELT_ID(VELT_CBOOL(text));
    if (value.name == "number" || value.name == "longLong" || value.name == "UInt") {
        return VELT_ID(VELT_CINTEGER(text));
    }
    if (value.name == "double" || value.name == "float") return VELT_ID(VELT_CDOUBLE(text));
    const NSPoint point{numberIn(value, "x"), numberIn(value, "y")};
    const NSSize size{numberIn(value, "width"), numberIn(value, "height")};
    if (value.name == "point" || value.name == "pointf") return VELT_ID(point);
    if (value.name == "size" || value.name == "sizef") return VELT_ID(size);
    if (value.name == "rect" || value.name == "rectf") return VELT_ID(NSRect{point, size});
    if (value.name != "stringlist") return std::nullopt;
    Ref<NSMutableArray> list = make<NSMutableArray>();
    for (const XmlElement& item : value.children) {
        if (item.name == "string") list->append(velt::string(item.text));
    }
    return id(list);
}

void setProperties(const id& object, const XmlElement& element) {
    for (const XmlElement& property : element.children) {
        const std::string& key = property.attribute("name");
        if (property.name != "property" || property.children.empty() || !canSetMemberForKey(object, key)) continue;
        if (const auto value = valueOf(property.children.front())) setValueForKey(object, key, *value);
    }
}

id madeByClass(const XmlElement& element, const std::string& className, const id& parent) {
    const Class* cls = Class::named(className);
    if (!cls || !cls->canMakeObjects()) return nil;
    id object = cls->newObject();
    setProperties(object, element);
    if (respondsTo(parent, VELT_SELECTOR("addSubview:"))) send(parent, VELT_SELECTOR("addSubview:"), object);
    return object;
}

id madeObject(const XmlElement& element, const std::string& className, const id& parent) {
    if (const InterfaceMaker maker = makerOf(className)) return maker(element, parent);
    return madeByClass(element, className, parent);
}

/// "open()" and "open(QString)" name the method "open:"; what has a colon is a selector already.
Selector actionOf(const std::string& slot) {
    if (slot.find(':') != slot.npos) return Selector::named(slot);
    return Selector::named(slot.substr(0, slot.find('(')) + ":");
}

class Loading {
public:
    explicit Loading(const id& owner) : owner_(owner) {}

    void load(const XmlElement& root) {
        if (root.name != "ui") throw LoadFailure(root, "the document is '" + root.name + "', not 'ui'");
        const XmlElement* outermost = root.child("widget");
        if (!outermost) throw LoadFailure(root, "there is no widget in it");
        outermost_ = outermost->attribute("name");
        makeTree(*outermost, nil);
        if (const InterfaceArranger arrange = arranger()) {
            arrange(*outermost, [this](const std::string& name) { return objectNamed(name); });
        }
        std::vector<Connection> connections;
        if (const XmlElement* list = root.child("connections")) {
            for (const XmlElement& row : list->children) {
                if (row.name == "connection") connections.push_back(resolve(row));
            }
        }
        for (const Named& named : objects_) {
            if (canSetMemberForKey(owner_, named.name)) setValueForKey(owner_, named.name, named.object);
        }
        for (const Connection& connection : connections) connect(connection);
    }

private:
    struct Named {
        std::string name;
        id object;
    };
    struct Connection {
        id sender, receiver;
        Selector action;
    };

    void makeTree(const XmlElement& element, const id& parent) {
        const std::string className = element.name == "action" ? "QAction" : element.attribute("class");
        id object = madeObject(element, className, parent);
        if (object.isNil()) {
            providers();  // the library with windows may know it
            object = madeObject(element, className, parent);
        }
        if (object.isNil()) throw LoadFailure(element, "there is no class '" + className + "' to make an object of");
        const std::string& name = element.attribute("name");
        if (!name.empty()) objects_.push_back({name, object});
        makeChildren(element, object);
    }

    void makeChildren(const XmlElement& element, const id& parent) {
        for (const XmlElement& child : element.children) {
            if (child.name == "widget" || child.name == "action") {
                makeTree(child, parent);
            } else if (child.name == "layout" || child.name == "item") {
                makeChildren(child, parent);
            }
        }
    }

    id objectNamed(const std::string& name) const {
        for (const Named& named : objects_) {
            if (named.name == name) return named.object;
        }
        return nil;
    }

    Connection resolve(const XmlElement& row) const {
        const std::string &sender = textOf(row, "sender"), &receiver = textOf(row, "receiver");
        Connection connection{objectNamed(sender), objectNamed(receiver), actionOf(textOf(row, "slot"))};
        if (connection.sender.isNil()) throw LoadFailure(row, "there is no object '" + sender + "' to connect");
        const bool isOwner = receiver == outermost_ && respondsTo(owner_, connection.action);
        if (isOwner) connection.receiver = owner_;
        if (connection.receiver.isNil()) throw LoadFailure(row, "there is no object '" + receiver + "' to connect");
        if (!respondsTo(connection.receiver, connection.action)) {
            throw LoadFailure(row, quotedClassName(connection.receiver) + " has no method '" +
                                       connection.action.name() + "'");
        }
        const bool canSend = respondsTo(connection.sender, VELT_SELECTOR("setTarget:")) &&
                             respondsTo(connection.sender, VELT_SELECTOR("setAction:"));
        if (!canSend) throw LoadFailure(row, quotedClassName(connection.sender) + " sends no actions");
        return connection;
    }

    static void connect(const Connection& connection) {
        send(connection.sender, VELT_SELECTOR("setTarget:"), connection.receiver);
        send(connection.sender, VELT_SELECTOR("setAction:"), velt::string(connection.action.name()));
    }

    id owner_;
    std::string outermost_;
    std::vector<Named> objects_;
};

}  // namespace

void registerInterfaceMaker(const std::string& className, InterfaceMaker maker) {
    const std::lock_guard lock(makers().mutex);
    makers().byClass[className] = maker;
}

void registerInterfaceArranger(InterfaceArranger arranger) {
    const std::lock_guard lock(makers().mutex);
    makers().arranger = arranger;
}

std::string loadInterface(const std::string& path, const id& owner) {
    std::string failure;
    const auto bytes = readFile(path, &failure);
    return bytes ? loadInterfaceText(*bytes, path, owner) : failure;
}

std::string loadInterfaceText(const std::string& text, const std::string& name, const id& owner) {
    try {
        Loading(owner).load(readXmlTree(text));
    } catch (const XmlError& error) {
        return name + ": " + error.what();
    } catch (const LoadFailure& error) {
        return name + ": " + error.what();
    }
    return "";
}

}  // namespace velt
