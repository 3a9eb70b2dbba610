#include "VELTRuntime/platform/appkit/view_animation.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/panels/frame_animation.h"
#include "VELTRuntime/platform/appkit/window.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/values/string.h"

#include <QEventLoop>
#include <QGraphicsOpacityEffect>
#include <QPointer>
#include <QVariantAnimation>
#include <algorithm>

using velt::Ref;

namespace {

enum class Effect { None, FadeIn, FadeOut };

bool isText(const id& value, std::string_view text) { return velt::isString(value) && velt::utf8(value) == text; }

/// One window or view on its way.
class Moving {
public:
    Moving(const id& target, const NSDictionary& entry)
        : window_(velt::is<NSWindow>(target) ? velt::as<NSWindow>(target) : nullptr),
          view_(velt::is<NSView>(target) ? velt::as<NSView>(target) : nullptr) {
        if (!window_ && !view_) return;
        const id first = entry.objectForKey(velt::string(velt::kAnimationStartFrame));
        const id last = entry.objectForKey(velt::string(velt::kAnimationEndFrame));
        const id effect = entry.objectForKey(velt::string(velt::kAnimationEffect));
        first_ = first.isNil() ? frame() : VELT_CNSRECT(first);
        last_ = last.isNil() ? frame() : VELT_CNSRECT(last);
        moves_ = !first.isNil() || !last.isNil();
        if (isText(effect, velt::kFadeIn)) effect_ = Effect::FadeIn;
        if (isText(effect, velt::kFadeOut)) effect_ = Effect::FadeOut;
    }

    void begin() {
        if (moves_) setFrame(first_);
        if (effect_ == Effect::FadeIn) {
            setOpacity(0);
            if (view_) view_->setHidden(false);
            if (window_) window_->orderFront(nil);
        }
    }
    void go(double part) {
        if (moves_) setFrame(velt::between(first_, last_, part));
        if (effect_ != Effect::None) setOpacity(effect_ == Effect::FadeIn ? part : 1 - part);
    }
    void arrive() {
        if (moves_) setFrame(last_);
        if (effect_ == Effect::FadeOut) {
            if (view_) view_->setHidden(true);
            if (window_) window_->orderOut(nil);
        }
        stop();
    }
    void stop() {
        if (effect_ == Effect::None) return;
        if (window_) window_->setAlphaValue(1);
        if (view_ && view_->existingWidget() && view_->existingWidget()->graphicsEffect() == opacity_) {
            view_->existingWidget()->setGraphicsEffect(nullptr);
        }
    }

private:
    NSRect frame() const { return window_ ? window_->frame() : view_->frame(); }
    void setFrame(NSRect frame) {
        if (window_) window_->setFrame(frame);
        if (view_) view_->setFrame(frame);
    }
    void setOpacity(double opacity) {
        if (window_) window_->setAlphaValue(opacity);
        if (!view_) return;
        if (!opacity_) {
            opacity_ = new QGraphicsOpacityEffect;
            view_->widget().setGraphicsEffect(opacity_);  // owns it
        }
        opacity_->setOpacity(opacity);
    }

    Ref<NSWindow> window_;
    Ref<NSView> view_;
    NSRect first_{}, last_{};
    bool moves_ = false;
    Effect effect_ = Effect::None;
    QPointer<QGraphicsOpacityEffect> opacity_;
};

}  // namespace

struct NSViewAnimation::Run {
    Run() = default;
    ~Run() {
        // It may be telling us something just now.
        clock->disconnect();
        clock->stop();
        clock->deleteLater();
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    std::vector<Moving> parts;
    QVariantAnimation* const clock = new QVariantAnimation;
    QEventLoop* loop = nullptr;
    Ref<NSViewAnimation> kept;  // what runs is not dropped
};

NSViewAnimation::NSViewAnimation() { velt::requireApplicationObject("an animation"); }

NSViewAnimation::~NSViewAnimation() { NSViewAnimation::dissolve(); }

id NSViewAnimation::initWithViewAnimations(const id& animations) {
    setViewAnimations(animations);
    return id(static_cast<NSObject*>(this));
}

void NSViewAnimation::setDuration(double seconds) {
    constexpr double kMost = 1e6;  // the toolkit's clock counts milliseconds in 32 bits
    duration_ = std::min(std::max(0.0, seconds), kMost);
}

void NSViewAnimation::setAnimationCurve(unsigned long curve) {
    if (curve <= static_cast<unsigned long>(velt::AnimationCurve::Linear)) {
        curve_ = static_cast<velt::AnimationCurve>(curve);
    }
}

void NSViewAnimation::tell(std::string_view selector) {
    const velt::Selector named = velt::Selector::named(selector);
    const id delegate = delegate_;
    if (velt::respondsTo(delegate, named)) velt::send(delegate, named, id(static_cast<NSObject*>(this)));
}

double NSViewAnimation::currentProgress() const {
    if (!run_) return 0;
    const int whole = run_->clock->duration();
    return whole > 0 ? static_cast<double>(run_->clock->currentTime()) / whole : 1;
}

double NSViewAnimation::currentValue() const { return run_ ? run_->clock->currentValue().toDouble() : 0; }

void NSViewAnimation::startAnimation() {
    if (run_) return;
    const Ref<NSViewAnimation> kept(this);
    const velt::Selector asks = velt::Selector::named("animationShouldStart:");
    const id delegate = delegate_;
    if (velt::respondsTo(delegate, asks) && !VELT_CBOOL(velt::send(delegate, asks, id(static_cast<NSObject*>(this))))) {
        return;
    }
    const auto run = std::make_shared<Run>();
    const id animations = animations_;
    if (const NSArray* list = velt::arrayOf(animations)) {
        for (const id& entry : list->items()) {
            const NSDictionary* what = velt::dictionaryOf(entry);
            if (what) run->parts.emplace_back(what->objectForKey(velt::string(velt::kAnimationTarget)), *what);
        }
    }
    run->kept = kept;
    run_ = run;
    for (Moving& part : run->parts) part.begin();
    static constexpr QEasingCurve::Type kCurves[] = {QEasingCurve::InOutQuad, QEasingCurve::InQuad,
                                                     QEasingCurve::OutQuad, QEasingCurve::Linear};
    constexpr double kMillisecond = 1000;
    QVariantAnimation& clock = *run->clock;
    clock.setStartValue(0.0);
    clock.setEndValue(1.0);
    clock.setDuration(static_cast<int>(duration_ * kMillisecond));
    clock.setEasingCurve(kCurves[static_cast<unsigned long>(curve_)]);
    QObject::connect(&clock, &QVariantAnimation::valueChanged, &clock, [this](const QVariant& value) {
        velt::runReported([&] {
            const Ref<NSViewAnimation> self(this);
            const std::shared_ptr<Run> now = run_;
            if (!now) return;
            for (Moving& part : now->parts) part.go(value.toDouble());
        });
    });
    QObject::connect(&clock, &QVariantAnimation::finished, &clock, [this] { velt::runReported([this] { arrive(); }); });
    QEventLoop loop;
    if (blocking_ == 0) run->loop = &loop;
    clock.start();
    if (blocking_ == 0 && run_ == run) loop.exec(QEventLoop::ExcludeUserInputEvents);
}

void NSViewAnimation::arrive() {
    const Ref<NSViewAnimation> kept(this);
    const std::shared_ptr<Run> run = std::exchange(run_, nullptr);
    if (!run) return;
    for (Moving& part : run->parts) part.arrive();
    if (run->loop) run->loop->quit();
    tell("animationDidEnd:");
}

void NSViewAnimation::stopAnimation() {
    const Ref<NSViewAnimation> kept(this);
    const std::shared_ptr<Run> run = std::exchange(run_, nullptr);
    if (!run) return;
    run->clock->disconnect();
    run->clock->stop();
    for (Moving& part : run->parts) part.stop();
    if (run->loop) run->loop->quit();
    tell("animationDidStop:");
}

void NSViewAnimation::visitOwned(velt::OwnedVisitor& visitor) {
    visitor.visit(animations_);
    visitor.visit(delegate_);
    NSObject::visitOwned(visitor);
}

void NSViewAnimation::dissolve() {
    // While it runs nobody drops it but the end of the program.
    const std::shared_ptr<Run> run = std::exchange(run_, nullptr);
    NSObject::dissolve();
}

void NSViewAnimation::describe(velt::ClassBuilder<NSViewAnimation>& c) {
    c.property("viewAnimations", &NSViewAnimation::viewAnimations, &NSViewAnimation::setViewAnimations)
        .property("duration", &NSViewAnimation::duration, &NSViewAnimation::setDuration)
        .property("animationCurve", &NSViewAnimation::animationCurve, &NSViewAnimation::setAnimationCurve)
        .property("animationBlockingMode", &NSViewAnimation::animationBlockingMode,
                  &NSViewAnimation::setAnimationBlockingMode)
        .property("delegate", &NSViewAnimation::delegate, &NSViewAnimation::setDelegate)
        .property("currentProgress", &NSViewAnimation::currentProgress)
        .property("currentValue", &NSViewAnimation::currentValue)
        .method("initWithViewAnimations:", &NSViewAnimation::initWithViewAnimations)
        .method("isAnimating", &NSViewAnimation::isAnimating)
        .method("startAnimation", &NSViewAnimation::startAnimation)
        .method("stopAnimation", &NSViewAnimation::stopAnimation);
}
