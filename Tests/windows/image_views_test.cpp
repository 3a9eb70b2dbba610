#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/control_window.h"

#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <QTemporaryDir>
#include <QUrl>

using namespace velt::test;
using velt::ImageAlignment;
using velt::ImageScaling;
using velt::Ref;

namespace {

id picture(QColor color, int width = 20, int height = 10) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    return velt::make<NSImage>(image);
}

std::string shown(QRect rect) {
    return std::to_string(rect.x()) + "," + std::to_string(rect.y()) + " " + std::to_string(rect.width()) + "x" +
           std::to_string(rect.height());
}

std::string placed(QSize image, ImageScaling scaling, ImageAlignment alignment = ImageAlignment::Centre) {
    return shown(velt::imageRect(QRect(0, 0, 100, 60), image, scaling, alignment));
}

QColor middle(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

bool drop(QWidget& widget, QMimeData& data) {
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&widget, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&widget, &event);
    return true;
}

}  // namespace

TEST(ImageScaling, FollowsItsCode) {
    EXPECT_EQ("0,5 100x50", placed({200, 100}, ImageScaling::ProportionallyDown));
    EXPECT_EQ("40,25 20x10", placed({20, 10}, ImageScaling::ProportionallyDown));
    EXPECT_EQ("0,0 100x60", placed({20, 10}, ImageScaling::AxesIndependently));
    EXPECT_EQ("40,25 20x10", placed({20, 10}, ImageScaling::None));
    EXPECT_EQ("-50,-20 200x100", placed({200, 100}, ImageScaling::None));
    EXPECT_EQ("0,5 100x50", placed({20, 10}, ImageScaling::ProportionallyUpOrDown));
    EXPECT_EQ("0,5 100x50", placed({200, 100}, ImageScaling::ProportionallyUpOrDown));
    EXPECT_EQ("0,0 20x10", placed({20, 10}, ImageScaling::None, ImageAlignment::TopLeft));
    EXPECT_EQ("80,50 20x10", placed({20, 10}, ImageScaling::None, ImageAlignment::BottomRight));
    EXPECT_EQ("40,50 20x10", placed({20, 10}, ImageScaling::None, ImageAlignment::Bottom));
    EXPECT_EQ("80,25 20x10", placed({20, 10}, ImageScaling::None, ImageAlignment::Right));
}

TEST(ImageViews, AreMadeWithAnImageOrWithout) {
    EXPECT_TRUE(VELT_NSIMAGEVIEW_IMAGE(VELT_NSIMAGEVIEW_INIT(nil, "")).isNil());
    const id red = picture(Qt::red);
    const id view = VELT_NSIMAGEVIEW_INIT(nil, "", red);
    EXPECT_EQ(red, VELT_NSIMAGEVIEW_IMAGE(view));
    EXPECT_EQ(red, VELT_NSCONTROL_OBJECTVALUE(view));
    EXPECT_VALUE("''", VELT_NSCONTROL_STRINGVALUE(view));
    EXPECT_VALUE("Q 0", VELT_NSIMAGEVIEW_IMAGESCALING(view));
    VELT_NSIMAGEVIEW_IMAGESCALING(view, VELT_ID(3L));
    VELT_NSIMAGEVIEW_IMAGESCALING(view, VELT_ID(4L));  // there is none of that number
    EXPECT_VALUE("Q 3", VELT_NSIMAGEVIEW_IMAGESCALING(view));
    EXPECT_CAST_FAILURE("'NSImage' expected", VELT_NSIMAGEVIEW_IMAGE(view, VELT_ID(3L)));
    EXPECT_EQ(red, VELT_NSIMAGEVIEW_IMAGE(view));
    EXPECT_CAST_FAILURE("'NSImage' expected", VELT_NSIMAGEVIEW_INIT(nil, "", VELT_ID(3L)));
    VELT_NSCONTROL_OBJECTVALUE(view, str("no image"));
    EXPECT_TRUE(VELT_NSIMAGEVIEW_IMAGE(view).isNil());
    EXPECT_VALUE("Q 0", VELT_NSIMAGEVIEW_IMAGESCALING(nil));
}

TEST(ImageCells, AreMadeWithAnImageOrWithout) {
    const Ref<ActionListener> owner = velt::make<ActionListener>();
    const id red = picture(Qt::red);
    const id cell = VELT_NSIMAGECELL_INIT(owner, "click:", red);
    EXPECT_EQ(red, VELT_NSCELL_OBJECTVALUE(cell));
    EXPECT_EQ(id(owner), velt::send(cell, "target"));
    EXPECT_TRUE(VELT_NSCELL_OBJECTVALUE(VELT_NSIMAGECELL_INIT(nil, "")).isNil());
    EXPECT_VALUE("{CGSize=dd} {20, 10}", velt::send(cell, "cellSize"));
}

TEST(ImageViews, ShowTheirImage) {
    ControlWindow window;
    const id view = VELT_NSIMAGEVIEW_INIT(nil, "", picture(Qt::red));
    velt::as<NSView>(view)->setFrame({{20, 20}, {80, 60}});
    VELT_NSWINDOW_APPEND(window.window, view);
    window.show();
    QWidget& widget = velt::as<NSView>(view)->widget();
    EXPECT_EQ(QColor(Qt::red), middle(widget));
    const QImage plain = widget.grab().toImage();
    std::vector<QImage> frames;
    for (unsigned long style = 0; style <= 4; ++style) {
        velt::as<NSImageView>(view)->setImageFrameStyle(style);
        frames.push_back(widget.grab().toImage());
        EXPECT_EQ(1, std::count(frames.begin(), frames.end(), frames.back())) << style;
    }
    velt::as<NSImageView>(view)->setImageFrameStyle(0);
    VELT_NSIMAGEVIEW_IMAGESCALING(view, VELT_ID(1L));
    EXPECT_NE(plain, widget.grab().toImage());
    velt::send(view, "setImage:", nil);
    EXPECT_NE(QColor(Qt::red), middle(widget));
    VELT_NSIMAGEVIEW_IMAGE(view, velt::make<NSImage>(QImage()));  // nothing to draw
    EXPECT_NE(QColor(Qt::red), middle(widget));
}

TEST(ImageViews, TakeImagesFromAPersonWhenEditable) {
    ControlWindow window;
    const id view = VELT_NSIMAGEVIEW_INIT(window.listener, "click:", picture(Qt::red));
    velt::as<NSView>(view)->setFrame({{20, 20}, {80, 60}});
    VELT_NSWINDOW_APPEND(window.window, view);
    window.show();
    QWidget& widget = velt::as<NSView>(view)->widget();
    QMimeData dragged;
    dragged.setImageData(velt::as<NSImage>(picture(Qt::blue))->picture());
    EXPECT_FALSE(widget.acceptDrops());
    EXPECT_VALUE("c 0", VELT_NSWINDOW_MAKEFIRSTRESPONDER(window.window, view));
    velt::send(view, "setEditable:", VELT_ID(BOOL{1}));
    EXPECT_TRUE(drop(widget, dragged));
    EXPECT_EQ("NSImageView ", window.heard());
    EXPECT_EQ(QColor(Qt::blue), middle(widget));

    EXPECT_VALUE("c 1", VELT_NSWINDOW_MAKEFIRSTRESPONDER(window.window, view));
    QTest::keyClick(&widget, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(&widget, Qt::Key_Delete);
    EXPECT_EQ("NSImageView ", window.heard());
    EXPECT_TRUE(VELT_NSIMAGEVIEW_IMAGE(view).isNil());
    QTest::keyClick(&widget, Qt::Key_Delete);  // nothing is left to delete
    EXPECT_EQ("", window.heard());
    QTest::keyClick(&widget, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ("NSImageView ", window.heard());
    EXPECT_EQ(QColor(Qt::blue), middle(widget));
    EXPECT_VALUE("c 1", VELT_FIRSTRESPONDER_SENDACTION(nil, str("cut")));
    EXPECT_TRUE(VELT_NSIMAGEVIEW_IMAGE(view).isNil());

    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("green.png"));
    QImage green(4, 4, QImage::Format_ARGB32);
    green.fill(Qt::green);
    ASSERT_TRUE(green.save(path));
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile(folder.filePath(QStringLiteral("missing.png"))), QUrl::fromLocalFile(path)});
    drop(widget, file);
    EXPECT_EQ(QColor(Qt::green), middle(widget));
    QMimeData text;
    text.setText(QStringLiteral("no image"));
    EXPECT_FALSE(drop(widget, text));
    VELT_NSCONTROL_ENABLED(view, VELT_ID(BOOL{0}));
    EXPECT_FALSE(widget.acceptDrops());
}
