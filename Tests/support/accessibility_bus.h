// What the desktop's accessibility bus says of the programs on it: the same that a screen reader is told. Tests see the
// windows of other processes through it.
#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusMetaType>
#include <QDBusReply>
#include <QRect>
#include <QStringList>
#include <QThread>

#include <functional>
#include <string>
#include <vector>

namespace velt::test {

/// Where an object of a program on the bus is.
struct BusPlace {
    QString service;
    QDBusObjectPath path;
};
/// What can be done with an object: its name, what it means, its key.
struct BusAction {
    QString name, description, key;
};

inline QDBusArgument& operator<<(QDBusArgument& to, const BusPlace& place) {
    to.beginStructure();
    to << place.service << place.path;
    to.endStructure();
    return to;
}
inline const QDBusArgument& operator>>(const QDBusArgument& from, BusPlace& place) {
    from.beginStructure();
    from >> place.service >> place.path;
    from.endStructure();
    return from;
}
inline QDBusArgument& operator<<(QDBusArgument& to, const BusAction& action) {
    to.beginStructure();
    to << action.name << action.description << action.key;
    to.endStructure();
    return to;
}
inline const QDBusArgument& operator>>(const QDBusArgument& from, BusAction& action) {
    from.beginStructure();
    from >> action.name >> action.description >> action.key;
    from.endStructure();
    return from;
}

}  // namespace velt::test

Q_DECLARE_METATYPE(velt::test::BusPlace)
Q_DECLARE_METATYPE(velt::test::BusAction)

namespace velt::test {

/// The bus, connected to at first use; not connected when the desktop has none.
inline const QDBusConnection& accessibilityBus() {
    static const QDBusConnection bus = [] {
        qDBusRegisterMetaType<BusPlace>();
        qDBusRegisterMetaType<QList<BusPlace>>();
        qDBusRegisterMetaType<BusAction>();
        qDBusRegisterMetaType<QList<BusAction>>();
        qDBusRegisterMetaType<QList<quint32>>();
        QDBusInterface desk(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                            QStringLiteral("org.a11y.Bus"));
        const QDBusReply<QString> address = desk.call(QStringLiteral("GetAddress"));
        return QDBusConnection::connectToBus(address.value(), QStringLiteral("accessibility"));
    }();
    return bus;
}

/// One object that a program shows on the bus.
class Accessible {
public:
    Accessible() = default;
    explicit Accessible(BusPlace place) : place_(std::move(place)) {}

    bool exists() const { return !place_.service.isEmpty(); }
    std::string name() const { return property("Accessible", "Name").toString().toStdString(); }
    std::string description() const { return property("Accessible", "Description").toString().toStdString(); }
    std::string role() const {
        constexpr quint32 kPasswordText = 40;  // the toolkit calls it a text in words, but not in numbers
        if (reply<quint32>("Accessible", "GetRole") == kPasswordText) return "password text";
        return reply<QString>("Accessible", "GetRoleName").toStdString();
    }
    bool has(const char* interface) const {
        return reply<QStringList>("Accessible", "GetInterfaces").contains(QLatin1String("org.a11y.atspi.") + interface);
    }
    std::vector<Accessible> children() const {
        std::vector<Accessible> found;
        for (const BusPlace& place : reply<QList<BusPlace>>("Accessible", "GetChildren")) found.emplace_back(place);
        return found;
    }
    /// The states by their numbers in the bus's own list.
    bool isIn(int state) const {
        const auto words = reply<QList<quint32>>("Accessible", "GetState");
        return words.size() > state / 32 && (words[state / 32] >> (state % 32) & 1U);
    }
    bool isChecked() const { return isIn(4); }
    bool isEnabled() const { return isIn(8); }
    bool isFocusable() const { return isIn(11); }
    bool isFocused() const { return isIn(12); }
    bool isMixed() const { return isIn(32); }
    bool isSelected() const { return isIn(23); }

    double value() const { return property("Value", "CurrentValue").toDouble(); }
    double minimum() const { return property("Value", "MinimumValue").toDouble(); }
    double maximum() const { return property("Value", "MaximumValue").toDouble(); }
    void setValue(double value) const {
        QDBusMessage call = message("org.freedesktop.DBus.Properties", "Set");
        call << QStringLiteral("org.a11y.atspi.Value") << QStringLiteral("CurrentValue")
             << QVariant::fromValue(QDBusVariant(value));
        accessibilityBus().call(call);
    }
    std::string text() const { return reply<QString>("Text", "GetText", {0, -1}).toStdString(); }
    /// Where it is on the screen.
    QRect extents() const {
        const QDBusMessage answer = accessibilityBus().call(filled("Component", "GetExtents", {quint32{0}}));
        if (answer.arguments().isEmpty()) return {};
        const auto from = answer.arguments().constFirst().value<QDBusArgument>();
        int x = 0, y = 0, width = 0, height = 0;
        from.beginStructure();
        from >> x >> y >> width >> height;
        from.endStructure();
        return {x, y, width, height};
    }
    QStringList actions() const {
        QStringList names;
        for (const BusAction& action : reply<QList<BusAction>>("Action", "GetActions")) names << action.name;
        return names;
    }
    /// Does what is named; false when the object cannot.
    bool act(const char* action) const {
        const qsizetype index = actions().indexOf(QLatin1String(action));
        return index >= 0 && reply<bool>("Action", "DoAction", {static_cast<int>(index)});
    }

    /// The first object below this one that the condition holds for, in the order of the tree.
    Accessible find(const std::function<bool(const Accessible&)>& holds) const {
        for (const Accessible& child : children()) {
            if (holds(child)) return child;
            if (Accessible found = child.find(holds); found.exists()) return found;
        }
        return {};
    }
    Accessible find(const std::string& role, const std::string& name) const {
        return find([&](const Accessible& one) { return one.name() == name && one.role() == role; });
    }
    /// Role, name, what can be read and whether it is worked, in one line.
    std::string line() const {
        std::string said = role() + " '" + name() + "'";
        if (has("Value")) {
            said += " value " + number(value()) + " of " + number(minimum()) + ".." + number(maximum());
        }
        if (has("Text")) said += " text '" + text() + "'";
        if (const std::string more = description(); !more.empty()) said += " description '" + more + "'";
        if (isChecked()) said += " checked";
        if (isMixed()) said += " mixed";
        if (isSelected()) said += " selected";
        if (isFocusable()) said += " focusable";
        if (!isEnabled()) said += " disabled";
        if (const QStringList does = actions(); !does.isEmpty())
            said += " does " + does.join(QLatin1Char(',')).toStdString();
        return said;
    }
    /// The lines of the tree below this object, indented.
    std::string tree(int depth = 0) const {
        std::string lines = std::string(static_cast<std::size_t>(depth) * 2, ' ') + line() + "\n";
        for (const Accessible& child : children()) lines += child.tree(depth + 1);
        return lines;
    }

private:
    static std::string number(double value) { return QString::number(value).toStdString(); }
    QDBusMessage message(const QString& interface, const char* member) const {
        return QDBusMessage::createMethodCall(place_.service, place_.path.path(), interface, QLatin1String(member));
    }
    QDBusMessage filled(const char* interface, const char* member, const QVariantList& arguments) const {
        QDBusMessage call = message(QLatin1String("org.a11y.atspi.") + interface, member);
        call.setArguments(arguments);
        return call;
    }
    template <class T> T reply(const char* interface, const char* member, const QVariantList& arguments = {}) const {
        const QDBusReply<T> answer = accessibilityBus().call(filled(interface, member, arguments));
        return answer.value();
    }
    QVariant property(const char* interface, const char* name) const {
        QDBusMessage call = message(QStringLiteral("org.freedesktop.DBus.Properties"), "Get");
        call << QString(QLatin1String("org.a11y.atspi.") + interface) << QString::fromLatin1(name);
        const QDBusReply<QDBusVariant> answer = accessibilityBus().call(call);
        return answer.value().variant();
    }

    BusPlace place_;
};

/// The windows of all programs: the root of the bus.
inline Accessible accessibleDesktop() {
    return Accessible({QStringLiteral("org.a11y.atspi.Registry"),
                       QDBusObjectPath(QStringLiteral("/org/a11y/atspi/accessible/root"))});
}

/// Waits until something holds; gives up after half a minute, which only a failure takes.
template <class Condition> bool waitFor(Condition&& holds) {
    for (int tries = 0; tries < 600; ++tries) {
        if (holds()) return true;
        QThread::msleep(50);
    }
    return false;
}

/// The window of that title, once it is on the bus; none after half a minute.
inline Accessible windowOnTheBus(const std::string& title) {
    Accessible window;
    waitFor([&] {
        window = accessibleDesktop().find([&](const Accessible& one) {
            const std::string role = one.role();
            return one.name() == title && (role == "frame" || role == "dialog" || role == "window");
        });
        return window.exists();
    });
    return window;
}

}  // namespace velt::test
