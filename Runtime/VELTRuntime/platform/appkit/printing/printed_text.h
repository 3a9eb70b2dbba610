// A text view's text on paper: whole lines, in the text's own fonts and colours. Temporary attributes, the selection
// and the insertion point belong to the screen alone.
#pragma once

#include "VELTRuntime/platform/appkit/printing/printed_pages.h"
#include "VELTRuntime/platform/appkit/text/text_view.h"

#include <QColor>
#include <QFont>
#include <QTextOption>
#include <vector>

class QTextLayout;

namespace velt {

class PrintedText final : public PrintedPages {
public:
    PrintedText(const NSTextView& view, const NSPrintInfo& info, const PrintedArea& area);

    std::size_t count() const override { return pages_.size(); }
    void draw(std::size_t page, QPainter& painter) override;

private:
    struct Paragraph {
        std::size_t begin = 0, end = 0, next = 0;  // the line end lies between the last two
    };
    /// A page begins with a line of the paragraph at a position.
    struct Page {
        std::size_t paragraph = 0;
        int line = 0;
        double height = 0;
    };

    Paragraph paragraphAt(std::size_t begin) const;
    std::unique_ptr<QTextLayout> layoutOf(const Paragraph& paragraph) const;
    QFont onPaper(QFont font) const;
    void paginate(bool goesOn);
    bool isLast(const Paragraph& paragraph) const { return paragraph.next == paragraph.end; }

    const PrintedArea area_;
    const id kept_;  // the text as it was in the beginning
    const NSAttributedString& text_;
    QFont font_;
    QTextOption option_;
    QColor color_ = Qt::black, ground_;
    double lineWidth_ = 0;
    bool centered_;
    std::vector<Page> pages_;
};

}  // namespace velt
