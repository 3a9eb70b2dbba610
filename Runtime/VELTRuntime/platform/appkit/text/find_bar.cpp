#include "VELTRuntime/platform/appkit/text/find_bar.h"

#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/find_actions.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QToolButton>

namespace velt {

namespace {

QToolButton* makeButton(QWidget* parent, const QString& title, const char* name) {
    auto* button = new QToolButton(parent);
    button->setText(title);
    button->setObjectName(QString::fromLatin1(name));
    button->setAccessibleName(title);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

}  // namespace

FindBar::FindBar(QWidget& parent)
    : QWidget(&parent), find_(new QLineEdit(this)), replace_(new QLineEdit(this)),
      caseMatters_(new QCheckBox(QStringLiteral("&Case"), this)),
      wholeWords_(new QCheckBox(QStringLiteral("&Words"), this)), wraps_(new QCheckBox(QStringLiteral("W&rap"), this)),
      inSelection_(new QCheckBox(QStringLiteral("&Selection"), this)), result_(new QLabel(this)) {
    hide();
    setAccessibleName(QStringLiteral("Find"));
    find_->setObjectName(QStringLiteral("find"));
    find_->setPlaceholderText(QStringLiteral("Find"));
    find_->setAccessibleName(QStringLiteral("Find"));
    find_->setClearButtonEnabled(true);
    replace_->setObjectName(QStringLiteral("replace"));
    replace_->setPlaceholderText(QStringLiteral("Replace with"));
    replace_->setAccessibleName(QStringLiteral("Replace with"));
    caseMatters_->setToolTip(QStringLiteral("Upper and lower case differ"));
    wholeWords_->setToolTip(QStringLiteral("Whole words only"));
    wraps_->setToolTip(QStringLiteral("Go on at the other end of the text"));
    inSelection_->setToolTip(QStringLiteral("Replace all within the selection only"));
    for (QCheckBox* option : {caseMatters_, wholeWords_, wraps_, inSelection_}) {
        option->setAccessibleName(option->toolTip());
    }
    result_->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    result_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    result_->setObjectName(QStringLiteral("result"));

    QToolButton* next = makeButton(this, QStringLiteral("Next"), "next");
    QToolButton* previous = makeButton(this, QStringLiteral("Previous"), "previous");
    QToolButton* replaceOne = makeButton(this, QStringLiteral("Replace"), "replaceOne");
    QToolButton* replaceAll = makeButton(this, QStringLiteral("Replace All"), "replaceAll");
    QToolButton* close = makeButton(this, QStringLiteral("Close"), "close");
    next->setIcon(QIcon::fromTheme(QStringLiteral("go-down")));
    previous->setIcon(QIcon::fromTheme(QStringLiteral("go-up")));
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setToolButtonStyle(Qt::ToolButtonIconOnly);
    close->setToolTip(QStringLiteral("Close"));
    close->setAutoRaise(true);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(6, 4, 6, 4);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(0, 1);
    grid->addWidget(find_, 0, 0);
    grid->addWidget(previous, 0, 1);
    grid->addWidget(next, 0, 2);
    grid->addWidget(close, 0, 3, Qt::AlignTrailing);
    grid->addWidget(replace_, 1, 0);
    grid->addWidget(replaceOne, 1, 1);
    grid->addWidget(replaceAll, 1, 2, 1, 2, Qt::AlignLeading);
    auto* options = new QHBoxLayout;
    options->setSpacing(10);
    for (QCheckBox* option : {caseMatters_, wholeWords_, wraps_, inSelection_}) options->addWidget(option);
    options->addWidget(result_, 1);
    grid->addLayout(options, 2, 0, 1, 4);

    connect(find_, &QLineEdit::textEdited, this, [this] { take(); });
    connect(replace_, &QLineEdit::textEdited, this, [this] { take(); });
    for (QCheckBox* option : {caseMatters_, wholeWords_, wraps_}) {
        connect(option, &QCheckBox::toggled, this, [this] { take(); });
    }
    connect(next, &QToolButton::clicked, this, [this] { ask(kFindNext); });
    connect(previous, &QToolButton::clicked, this, [this] { ask(kFindPrevious); });
    connect(replaceOne, &QToolButton::clicked, this, [this] { ask(kReplaceAndFind); });
    connect(replaceAll, &QToolButton::clicked, this,
            [this] { ask(inSelection_->isChecked() ? kReplaceAllInSelection : kReplaceAll); });
    connect(close, &QToolButton::clicked, this, [this] { onClose(); });
}

void FindBar::show(FindRequest& request) {
    request_ = nullptr;  // setting the widgets is no answer
    find_->setText(qtText(request.text));
    replace_->setText(qtText(request.replacement));
    caseMatters_->setChecked(!request.ignoresCase);
    wholeWords_->setChecked(request.wholeWords);
    wraps_->setChecked(request.wraps);
    result_->clear();
    request_ = &request;
    QWidget::show();
    raise();
}

void FindBar::takeKeyboard() {
    find_->setFocus(Qt::OtherFocusReason);
    find_->selectAll();
}

void FindBar::tellResult(const QString& text) { result_->setText(text); }

void FindBar::take() {
    if (!request_) return;
    request_->text = unitsOf(find_->text());
    request_->replacement = unitsOf(replace_->text());
    request_->ignoresCase = !caseMatters_->isChecked();
    request_->wholeWords = wholeWords_->isChecked();
    request_->wraps = wraps_->isChecked();
    result_->clear();
}

void FindBar::ask(long action) {
    take();
    onAction(action);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    const bool back = event->modifiers() & Qt::ShiftModifier;
    if (event->key() == Qt::Key_Escape) return onClose();
    if (event->matches(QKeySequence::FindNext)) return ask(kFindNext);
    if (event->matches(QKeySequence::FindPrevious)) return ask(kFindPrevious);
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QWidget::keyPressEvent(event);
    if (replace_->hasFocus()) return ask(kReplaceAndFind);
    ask(back ? kFindPrevious : kFindNext);
}

void FindBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, 0, width(), 0);
}

}  // namespace velt
