// Button cells: what a button shows in each of its states, and what a press does to its state.
#pragma once

#include "VELTRuntime/platform/appkit/controls/cell.h"

class NSEvent;

namespace velt {

/// How a button behaves; the numbers are the codes that programs use.
enum class ButtonType : long {
    MomentaryLight = 0,
    PushOnPushOff = 1,
    Toggle = 2,
    Switch = 3,
    Radio = 4,
    MomentaryChange = 5,
    OnOff = 6,
    MomentaryPushIn = 7,
};

/// What a button's border looks like; the numbers are the codes that programs use.
enum class BezelStyle : unsigned long {
    Rounded = 1,
    RegularSquare = 2,
    ThickSquare = 3,
    ThickerSquare = 4,
    Disclosure = 5,
    ShadowlessSquare = 6,
    Circular = 7,
    TexturedSquare = 8,
    Help = 9,
    SmallSquare = 10,
    TexturedRounded = 11,
    RoundRect = 12,
    Recessed = 13,
    RoundedDisclosure = 14,
};

/// Where a button's image stands beside its title; the numbers are the codes that programs use. Left and right are
/// those of a text that runs from left to right.
enum class ImagePosition : unsigned long {
    None = 0,
    Only = 1,
    Left = 2,
    Right = 3,
    Below = 4,
    Above = 5,
    Overlaps = 6,
};

/// How a button shows that it is pressed or on; masks of programs.
enum ButtonChange : long {
    kChangesNothing = 0,
    kChangesContents = 1,
    kPushesIn = 2,
    kChangesGray = 4,
    kChangesBackground = 8,
};

}  // namespace velt

class VELT_EXPORT NSButtonCell : public NSActionCell {
    VELT_OBJECT(NSButtonCell, NSActionCell)
public:
    /// A push button with the title "Button".
    NSButtonCell();

    // The value is the state.
    void setObjectValue(const id& value) override;
    void setState(long state) override;
    long nextState() const override;

    /// Sets how the button behaves. Codes that there are not are ignored.
    void setButtonType(long type);
    velt::ButtonType buttonType() const { return buttonType_; }
    bool isSwitch() const { return buttonType_ == velt::ButtonType::Switch; }
    bool isRadio() const { return buttonType_ == velt::ButtonType::Radio; }
    /// The border's sign shows the state, whatever the type.
    bool isDisclosure() const;
    long highlightsBy() const { return highlightsBy_; }
    void setHighlightsBy(long mask);
    long showsStateBy() const { return showsStateBy_; }
    void setShowsStateBy(long mask);

    // What it shows.
    id title() const override { return title_; }
    void setTitle(const id& title) override;
    /// The title while the button shows its other contents; the title when it is empty.
    id alternateTitle() const { return alternateTitle_; }
    void setAlternateTitle(const id& title);
    id attributedTitle() const;
    void setAttributedTitle(const id& title);
    id attributedAlternateTitle() const;
    void setAttributedAlternateTitle(const id& title);
    bool hasAttributedTitle() const { return !attributedTitle_.isNil(); }
    bool hasAttributedAlternateTitle() const { return !attributedAlternateTitle_.isNil(); }
    /// Shows an image; a button that showed none until then shows it beside its title.
    void setImage(const id& image) override;
    id alternateImage() const { return alternateImage_; }
    void setAlternateImage(const id& image);
    unsigned long imagePosition() const { return static_cast<unsigned long>(imagePosition_); }
    void setImagePosition(unsigned long position);

    // Looks.
    unsigned long bezelStyle() const { return static_cast<unsigned long>(bezelStyle_); }
    void setBezelStyle(unsigned long style);
    /// Nothing is drawn, but the button can be pressed.
    bool isTransparent() const { return transparent_; }
    void setTransparent(bool flag);
    NSSize cellSize() const override;

    // Keys.
    id keyEquivalent() const { return keyEquivalent_; }
    void setKeyEquivalent(const id& key);
    unsigned long keyEquivalentModifierMask() const { return keyMask_; }
    void setKeyEquivalentModifierMask(unsigned long mask);
    /// The key equivalent is that of a default button: Return, alone.
    bool isReturnButton() const;
    /// The event is the press of its key equivalent.
    bool answersKey(const NSEvent& event) const;

    /// Any object that answers "play": it is played when the button is pressed.
    id sound() const { return sound_; }
    void setSound(const id& sound) { sound_ = sound; }

    /// A person pressed it: the state that follows, for a button that shows its state, and the sound.
    void pressed();
    void performClick(const id& sender) override;
    static void describe(velt::ClassBuilder<NSButtonCell>& c);

private:
    velt::ButtonType buttonType_ = velt::ButtonType::MomentaryPushIn;
    velt::BezelStyle bezelStyle_ = velt::BezelStyle::RegularSquare;
    velt::ImagePosition imagePosition_ = velt::ImagePosition::None;
    long highlightsBy_ = 0, showsStateBy_ = 0;
    unsigned long keyMask_ = 0;
    bool transparent_ = false;
    id title_, alternateTitle_, attributedTitle_, attributedAlternateTitle_, alternateImage_, keyEquivalent_, sound_;
};
