#include "MainFormBuilder.h"

#include "CalendarMonthExtForm.h"
#include "DateRules.h"
#include "DayButton.h"
#include "MainFormLayout.h"
#include "appearance/CaptionLabel.h"
#include "appearance/VectorIcon.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>

namespace {

template<typename T>
T *named(QWidget *parent, const char *name, const QRect &geometry)
{
    auto *w = new T(parent);
    w->setObjectName(QString::fromLatin1(name));
    w->setGeometry(geometry);
    return w;
}

QLabel *label(QWidget *parent, const char *name, const QRect &geometry,
              Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter)
{
    QLabel *l = named<CaptionLabel>(parent, name, geometry);
    l->setAlignment(alignment);
    return l;
}

QPushButton *iconButton(QWidget *parent, const char *name, const QRect &geometry,
                        VectorIcon::Shape shape)
{
    auto *b = named<QPushButton>(parent, name, geometry);
    b->setIcon(VectorIcon::icon(shape));
    const int side = qMin(geometry.width(), geometry.height()) - 8;
    b->setIconSize(QSize(side, side));
    b->setFocusPolicy(Qt::StrongFocus);
    return b;
}

void setBold(QWidget *w, qreal pointSize = 0)
{
    QFont f = w->font();
    f.setBold(true);
    if (pointSize > 0)
        f.setPointSizeF(pointSize);
    w->setFont(f);
}

} // namespace

namespace MainFormBuilder {

void createControls(CalendarMonthExtForm &form)
{
    using L = MainFormLayout;
    QWidget *w = &form;

    // The body behind every control; dragging attaches to it.
    form.FrameMove = named<QFrame>(w, "FrameMove", w->rect());
    form.FrameMove->setFrameShape(QFrame::Box);
    form.FrameMove->setAutoFillBackground(true);
    QPalette body = form.FrameMove->palette();
    body.setColor(QPalette::Window, QColor(0xF3, 0xF5, 0xF8));
    body.setColor(QPalette::WindowText, QColor(0x7A, 0x8A, 0xA0));
    form.FrameMove->setPalette(body);

    form.ButtFocus = named<QPushButton>(w, "ButtFocus", QRect(-40, -40, 1, 1));

    form.LabelActDate = label(w, "LabelActDate", L::LabelActDate);
    setBold(form.LabelActDate, 12);
    form.KnCopy = iconButton(w, "KnCopy", L::KnCopy, VectorIcon::Shape::Copy);
    form.KnMin = iconButton(w, "KnMin", L::KnMin, VectorIcon::Shape::Minimise);
    form.KnClose = iconButton(w, "KnClose", L::KnClose, VectorIcon::Shape::Close);

    form.LabelMonth = label(w, "LabelMonth", L::LabelMonth);
    form.ButtPrevMonth =
        iconButton(w, "ButtPrevMonth", L::ButtPrevMonth, VectorIcon::Shape::Previous);
    form.ListMonth = named<QComboBox>(w, "ListMonth", L::ListMonth);
    form.ListMonth->setMaxVisibleItems(12);
    form.ListYear = named<QComboBox>(w, "ListYear", L::ListYear);
    for (int year = DateRules::FirstYear; year <= DateRules::LastYear; ++year)
        form.ListYear->addItem(QStringLiteral("%1").arg(year, 4, 10, QLatin1Char('0')));
    form.ButtNextMonth = iconButton(w, "ButtNextMonth", L::ButtNextMonth, VectorIcon::Shape::Next);
    form.ButtUndo = iconButton(w, "ButtUndo", L::ButtUndo, VectorIcon::Shape::Undo);
    form.ButtRedo = iconButton(w, "ButtRedo", L::ButtRedo, VectorIcon::Shape::Redo);

    for (int column = 1; column <= MonthGrid::ColumnCount; ++column) {
        QLabel *day = label(w, "LabelWeekDay", L::weekdayLabel(column), Qt::AlignCenter);
        day->setObjectName(QStringLiteral("LabelWeekDay%1").arg(column));
        day->setProperty("index", column);
        setBold(day);
        form.LabelWeekDay[static_cast<std::size_t>(column)] = day;
    }
    for (int i = 1; i <= MonthGrid::CellCount; ++i) {
        auto *cell = new DayButton(i, w);
        cell->setGeometry(L::dayCell(i));
        form.ButtDay[static_cast<std::size_t>(i)] = cell;
    }

    form.LabelToday = label(w, "LabelToday", L::LabelToday);
    form.LabelTodayVal = label(w, "LabelTodayVal", L::LabelTodayVal);
    form.LabelTime = label(w, "LabelTime", L::LabelTime);
    form.LabelTimeVal = label(w, "LabelTimeVal", L::LabelTimeVal);
    form.LabelActDate2 = label(w, "LabelActDate2", L::LabelActDate2);
    form.LabelActDate2Val = label(w, "LabelActDate2Val", L::LabelActDate2Val);
    form.LabelLeftDays = label(w, "LabelLeftDays", L::LabelLeftDays);
    form.LabelLeftDaysVal = label(w, "LabelLeftDaysVal", L::LabelLeftDaysVal);
    form.LabelDays = label(w, "LabelDays", L::LabelDays);
    for (QLabel *value :
         { form.LabelTodayVal, form.LabelTimeVal, form.LabelActDate2Val, form.LabelLeftDaysVal }) {
        setBold(value, 10);
    }
    QPalette captions = form.LabelToday->palette();
    captions.setColor(QPalette::WindowText, QColor(0x4A, 0x55, 0x68));
    for (QLabel *caption : { form.LabelToday, form.LabelTime, form.LabelActDate2,
                             form.LabelLeftDays, form.LabelDays, form.LabelMonth })
        caption->setPalette(captions);

    form.LabelSettings = label(w, "LabelSettings", L::LabelSettings);
    form.LabelAbout = label(w, "LabelAbout", L::LabelAbout);
    QPalette link = form.LabelSettings->palette();
    link.setColor(QPalette::WindowText, QColor(0x1A, 0x4F, 0xA8));
    for (QLabel *l : { form.LabelSettings, form.LabelAbout }) {
        l->setPalette(link);
        l->setCursor(Qt::PointingHandCursor);
    }

    form.ButtNew = iconButton(w, "ButtNew", L::ButtNew, VectorIcon::Shape::New);
    form.KnOk = iconButton(w, "KnOk", L::KnOk, VectorIcon::Shape::Ok);
    form.KnOk->setText(QStringLiteral("OK"));
}

} // namespace MainFormBuilder
