#include "VELTRuntime/platform/appkit/interface/layouts.h"

#include "VELTRuntime/platform/appkit/controls/control.h"
#include "VELTRuntime/platform/appkit/interface/arranged_view.h"
#include "VELTRuntime/platform/appkit/interface/designer_properties.h"
#include "VELTRuntime/platform/appkit/interface/widget_makers.h"
#include "VELTRuntime/platform/appkit/window.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <algorithm>
#include <charconv>
#include <cmath>

namespace velt {

namespace {

using Lookup = std::function<id(const std::string&)>;

constexpr int kSpacing = 6, kMargin = 9;  // what designers show for a layout that does not say

NSSize limitedSize(NSSize size, const XmlElement& element) {
    if (const auto least = designerSize(element, "minimumSize"))
        size = {std::max(size.width, least->width), std::max(size.height, least->height)};
    if (const auto most = designerSize(element, "maximumSize"))
        size = {std::min(size.width, most->width), std::min(size.height, most->height)};
    return size;
}

/// One view in a layout: it asks for the size of what it shows and grows as its kind of widget does. The layout is its
/// superview's; a view that left that has no place any more.
class ViewItem final : public QLayoutItem {
public:
    ViewItem(NSView& view, const XmlElement& element)
        : view_(&view), within_(view.superviewPointer()), least_(leastSize(view, element)), most_(mostSize(element)),
          grows_(growthOf(element)) {}

    QSize sizeHint() const override { return least_; }
    QSize minimumSize() const override { return least_; }
    QSize maximumSize() const override { return most_; }
    Qt::Orientations expandingDirections() const override { return grows_; }
    void setGeometry(const QRect& rect) override {
        place_ = rect;
        if (isGone()) return;
        QRect own = rect;
        // What cannot grow stands in the middle of its row, at the start of its column.
        own.setSize(QSize(std::min(rect.width(), most_.width()), std::min(rect.height(), most_.height())));
        if (!(grows_ & Qt::Vertical) && own.height() > least_.height()) own.setHeight(least_.height());
        own.moveTop(rect.top() + (rect.height() - own.height()) / 2);
        const double y = within_->isFlipped() ? own.y() : within_->bounds().size.height - own.y() - own.height();
        view_->setFrame(
            {{static_cast<double>(own.x()), y}, {static_cast<double>(own.width()), static_cast<double>(own.height())}});
    }
    QRect geometry() const override { return place_; }
    bool isEmpty() const override { return isGone() || view_->isHidden(); }

private:
    bool isGone() const {
        if (!within_) return true;
        const auto& views = within_->subviewList();
        return std::none_of(views.begin(), views.end(),
                            [this](const Ref<NSView>& view) { return view.get() == view_; });
    }
    static QSize whole(NSSize size) {
        return {static_cast<int>(std::ceil(size.width)), static_cast<int>(std::ceil(size.height))};
    }
    static QSize leastSize(NSView& view, const XmlElement& element) {
        NSSize size{};
        if (auto* control = dynamic_cast<NSControl*>(&view)) size = control->cellObject().cellSize();
        if (auto* arranged = dynamic_cast<VLArrangedView*>(containerView(&view))) size = arranged->preferredSize();
        return whole(limitedSize(usualSize(element, size), element));
    }
    static QSize mostSize(const XmlElement& element) {
        constexpr int kMost = QWIDGETSIZE_MAX;
        const auto most = designerSize(element, "maximumSize");
        if (!most) return {kMost, kMost};
        return {static_cast<int>(most->width), static_cast<int>(most->height)};
    }

    NSView* const view_;
    NSView* const within_;
    QRect place_;
    const QSize least_, most_;
    const Qt::Orientations grows_;
};

std::vector<int> numbersIn(const std::string& list) {
    std::vector<int> numbers;
    const char* at = list.data();
    const char* end = at + list.size();
    while (at < end) {
        int number = 0;
        const auto [next, error] = std::from_chars(at, end, number);
        numbers.push_back(error == std::errc() ? number : 0);
        at = std::find(next, end, ',');
        if (at < end) ++at;
    }
    return numbers;
}

int attributeNumber(const XmlElement& element, std::string_view name, int otherwise) {
    const std::vector<int> numbers = numbersIn(element.attribute(name));
    return numbers.empty() ? otherwise : numbers.front();
}

Qt::Alignment alignmentOf(const XmlElement& item) {
    const std::string& text = item.attribute("alignment");
    Qt::Alignment alignment;
    constexpr std::pair<const char*, Qt::AlignmentFlag> kNames[] = {
        {"AlignLeft", Qt::AlignLeft}, {"AlignRight", Qt::AlignRight},   {"AlignHCenter", Qt::AlignHCenter},
        {"AlignTop", Qt::AlignTop},   {"AlignBottom", Qt::AlignBottom}, {"AlignVCenter", Qt::AlignVCenter}};
    for (const auto& [name, flag] : kNames) {
        if (text.find(name) != text.npos) alignment |= flag;
    }
    return alignment;
}

class Arranging {
public:
    explicit Arranging(const Lookup& objectNamed) : objectNamed_(objectNamed) {}

    /// Inner views first: what they ask for decides the outer layouts.
    void arrange(const XmlElement& element) {
        for (const XmlElement& child : element.children) arrange(child);
        if (element.name != "widget") return;
        const id object = objectNamed_(element.attribute("name"));
        if (object.isNil()) return;
        linkActions(element, object);
        const XmlElement* layout = element.child("layout");
        auto* view =
            layout && object.isObject() ? dynamic_cast<VLArrangedView*>(containerView(object.object())) : nullptr;
        if (!view) return;
        std::unique_ptr<QLayout> made = layoutOf(*layout, true);
        const QSize least = made->totalMinimumSize();
        view->setLayout(std::move(made));
        if (auto* window = dynamic_cast<NSWindow*>(object.object())) {
            window->setContentMinSize({static_cast<double>(least.width()), static_cast<double>(least.height())});
        }
    }

private:
    std::unique_ptr<QLayout> layoutOf(const XmlElement& element, bool outermost) {
        const std::string& kind = element.attribute("class");
        std::unique_ptr<QLayout> layout;
        if (kind == "QHBoxLayout" || kind == "QVBoxLayout") {
            layout = boxOf(element, kind == "QHBoxLayout");
        } else {
            layout = gridOf(element, kind == "QFormLayout");
        }
        const int margin = outermost ? kMargin : 0;
        const auto side = [&](std::string_view name) { return designerDistance(element, name).value_or(margin); };
        layout->setContentsMargins(side("leftMargin"), side("topMargin"), side("rightMargin"), side("bottomMargin"));
        return layout;
    }

    std::unique_ptr<QLayout> boxOf(const XmlElement& element, bool horizontal) {
        auto box = std::make_unique<QBoxLayout>(horizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
        box->setSpacing(designerDistance(element, "spacing").value_or(kSpacing));
        for (const XmlElement& item : element.children) {
            if (item.name == "item") box->addItem(itemOf(item).release());
        }
        const std::vector<int> stretch = numbersIn(element.attribute("stretch"));
        for (std::size_t i = 0; i < stretch.size(); ++i) box->setStretch(static_cast<int>(i), stretch[i]);
        return box;
    }

    std::unique_ptr<QLayout> gridOf(const XmlElement& element, bool isForm) {
        auto grid = std::make_unique<QGridLayout>();
        const int spacing = designerDistance(element, "spacing").value_or(kSpacing);
        grid->setHorizontalSpacing(designerDistance(element, "horizontalSpacing").value_or(spacing));
        grid->setVerticalSpacing(designerDistance(element, "verticalSpacing").value_or(spacing));
        for (const XmlElement& item : element.children) {
            if (item.name != "item") continue;
            const int row = std::clamp(attributeNumber(item, "row", 0), 0, kMostRows);
            const int column = std::clamp(attributeNumber(item, "column", 0), 0, kMostRows);
            grid->addItem(itemOf(item).release(), row, column,
                          std::clamp(attributeNumber(item, "rowspan", 1), 1, kMostRows),
                          std::clamp(attributeNumber(item, "colspan", 1), 1, kMostRows), alignmentOf(item));
        }
        setStretches(element, "rowstretch", [&](int row, int value) { grid->setRowStretch(row, value); });
        setStretches(element, "columnstretch", [&](int column, int value) { grid->setColumnStretch(column, value); });
        if (isForm) grid->setColumnStretch(1, 1);  // the fields grow, not their labels
        return grid;
    }

    template <class Set> static void setStretches(const XmlElement& element, std::string_view name, Set set) {
        const std::vector<int> values = numbersIn(element.attribute(name));
        for (std::size_t i = 0; i < values.size(); ++i) set(static_cast<int>(i), values[i]);
    }

    std::unique_ptr<QLayoutItem> itemOf(const XmlElement& item) {
        for (const XmlElement& content : item.children) {
            if (content.name == "layout") return layoutOf(content, false);
            if (content.name == "spacer") return spacerOf(content);
            if (content.name != "widget") continue;
            const id object = objectNamed_(content.attribute("name"));
            auto* view = object.isObject() ? dynamic_cast<NSView*>(object.object()) : nullptr;
            if (!view) continue;
            auto made = std::make_unique<ViewItem>(*view, content);
            made->setAlignment(alignmentOf(item));
            return made;
        }
        return std::make_unique<QSpacerItem>(0, 0);
    }

    static std::unique_ptr<QLayoutItem> spacerOf(const XmlElement& element) {
        const NSSize size = designerSize(element, "sizeHint").value_or(NSSize{});
        const bool vertical = designerHas(element, "orientation", "Vertical");
        const bool fixed = designerHas(element, "sizeType", "Fixed");
        const QSizePolicy::Policy along = fixed ? QSizePolicy::Fixed : QSizePolicy::Expanding;
        return std::make_unique<QSpacerItem>(vertical || fixed ? static_cast<int>(size.width) : 0,
                                             !vertical || fixed ? static_cast<int>(size.height) : 0,
                                             vertical ? QSizePolicy::Minimum : along,
                                             vertical ? along : QSizePolicy::Minimum);
    }

    /// The items of a menu, in their order.
    void linkActions(const XmlElement& element, const id& menu) {
        if (!respondsTo(menu, VELT_SELECTOR("addItem:"))) return;
        for (const XmlElement& child : element.children) {
            if (child.name != "addaction") continue;
            if (const id item = menuItemNamed(child.attribute("name"), objectNamed_); !item.isNil())
                send(menu, VELT_SELECTOR("addItem:"), item);
        }
    }

    static constexpr int kMostRows = 1000;
    const Lookup& objectNamed_;
};

}  // namespace

void arrangeInterface(const XmlElement& root, const std::function<id(const std::string&)>& objectNamed) {
    Arranging(objectNamed).arrange(root);
}

}  // namespace velt
