#include "VELTRuntime/platform/appkit/containers/progress_indicator.h"

#include "VELTRuntime/platform/appkit/containers/spinner.h"

#include <QProgressBar>
#include <algorithm>
#include <cmath>

namespace {

/// The toolkit's bar counts in whole numbers: fine enough for any screen.
constexpr int kSteps = 10'000;

QProgressBar* barOf(QWidget& widget) { return widget.findChild<QProgressBar*>({}, Qt::FindDirectChildrenOnly); }
velt::Spinner* spinnerOf(QWidget& widget) {
    for (QObject* child : widget.children()) {
        if (auto* spinner = dynamic_cast<velt::Spinner*>(child)) return spinner;
    }
    return nullptr;
}

}  // namespace

void NSProgressIndicator::setDoubleValue(double value) {
    value_ = value;
    changed();
}
void NSProgressIndicator::setMinValue(double value) {
    min_ = value;
    changed();
}
void NSProgressIndicator::setMaxValue(double value) {
    max_ = value;
    changed();
}
void NSProgressIndicator::setIndeterminate(bool flag) {
    indeterminate_ = flag;
    changed();
}
void NSProgressIndicator::setStyle(unsigned long style) {
    style_ = style;
    changed();
}
void NSProgressIndicator::setDisplayedWhenStopped(bool flag) {
    displayedWhenStopped_ = flag;
    changed();
}
void NSProgressIndicator::startAnimation(const id&) {
    animating_ = true;
    changed();
}
void NSProgressIndicator::stopAnimation(const id&) {
    animating_ = false;
    changed();
}

void NSProgressIndicator::sizeToFit() {
    constexpr double kSpinnerSize = 32;
    if (style_ == kSpinning) return setFrameSize({kSpinnerSize, kSpinnerSize});
    setFrameSize({frame().size.width, static_cast<double>(barOf(widget())->sizeHint().height())});
}

double NSProgressIndicator::part() const {
    if (!(max_ > min_)) return 0;
    const double part = (value_ - min_) / (max_ - min_);
    return part >= 0 ? std::min(part, 1.0) : 0;
}

std::unique_ptr<QWidget> NSProgressIndicator::makeWidget() {
    std::unique_ptr<QWidget> made = NSView::makeWidget();
    auto* bar = new QProgressBar(made.get());
    bar->setTextVisible(false);
    bar->setAttribute(Qt::WA_TransparentForMouseEvents);
    new velt::Spinner(made.get());
    return made;
}

void NSProgressIndicator::syncWidget(QWidget& widget) {
    NSView::syncWidget(widget);
    QProgressBar& bar = *barOf(widget);
    velt::Spinner& spinner = *spinnerOf(widget);
    const bool spins = style_ == kSpinning;
    if (indeterminate_ && animating_) {
        bar.setRange(0, 0);  // the style moves it
    } else {
        bar.setRange(0, kSteps);
        bar.setValue(indeterminate_ ? 0 : static_cast<int>(std::lround(part() * kSteps)));
    }
    bar.setOrientation(frame().size.height > frame().size.width ? Qt::Vertical : Qt::Horizontal);
    // A spinning one that was started turns, whether or not it knows how far it has come.
    const bool turns = spins && animating_;
    spinner.setPart(indeterminate_ || turns ? -1 : part());
    spinner.setTurning(turns);
    const QRect whole(0, 0, std::max(0, static_cast<int>(std::lround(frame().size.width))),
                      std::max(0, static_cast<int>(std::lround(frame().size.height))));
    bar.setGeometry(whole);
    spinner.setGeometry(whole);
    bar.setVisible(!spins && isShown());
    spinner.setVisible(spins && isShown());
}

void NSProgressIndicator::sizeChanged(NSSize before) {
    NSView::sizeChanged(before);
    changed();
}

void NSProgressIndicator::describe(velt::ClassBuilder<NSProgressIndicator>& c) {
    c.property("doubleValue", &NSProgressIndicator::doubleValue, &NSProgressIndicator::setDoubleValue)
        .property("minValue", &NSProgressIndicator::minValue, &NSProgressIndicator::setMinValue)
        .property("maxValue", &NSProgressIndicator::maxValue, &NSProgressIndicator::setMaxValue)
        .property("style", &NSProgressIndicator::style, &NSProgressIndicator::setStyle)
        .flag("indeterminate", &NSProgressIndicator::isIndeterminate, &NSProgressIndicator::setIndeterminate)
        .flag("displayedWhenStopped", &NSProgressIndicator::isDisplayedWhenStopped,
              &NSProgressIndicator::setDisplayedWhenStopped)
        .method("incrementBy:", &NSProgressIndicator::incrementBy)
        .method("startAnimation:", &NSProgressIndicator::startAnimation)
        .method("stopAnimation:", &NSProgressIndicator::stopAnimation)
        .method("sizeToFit", &NSProgressIndicator::sizeToFit);
}
