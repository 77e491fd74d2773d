#include "MainFormBuilder.h"

#include "CalendarMonthExtForm.h"
#include "DateRules.h"
#include "DayButton.h"
#include "MainFormLayout.h"
#include "appearance/CaptionLabel.h"
#include "appearance/Captions.h"
#include "appearance/PictureButton.h"
#include "windowing/NamedControl.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>

namespace {

QLabel *label(QWidget *parent, const char *name, const QRect &geometry,
              Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter)
{
    QLabel *l = named<CaptionLabel>(parent, name, geometry);
    l->setAlignment(alignment);
    return l;
}

PictureButton *pictureButton(QWidget *parent, const char *name, const QRect &geometry,
                             ButtonArt::Picture picture)
{
    auto *b = named<PictureButton>(parent, name, geometry, picture);
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

// The window reads as a named window, not as a bare panel.
class MainWindowAccessible : public QAccessibleWidget
{
public:
    explicit MainWindowAccessible(QWidget *window)
        : QAccessibleWidget(window, QAccessible::Window)
    { }
};

// ButtFocus holds the focus between commands; a screen reader that follows the focus there reads
// the selected date instead of nothing.
class FocusHolderAccessible : public QAccessibleWidget
{
public:
    explicit FocusHolderAccessible(QWidget *button)
        : QAccessibleWidget(button, QAccessible::StaticText)
    { }
    QString text(QAccessible::Text t) const override
    {
        if (t != QAccessible::Name)
            return QAccessibleWidget::text(t);
        const auto *form = static_cast<const CalendarMonthExtForm *>(widget()->parentWidget());
        return form->LabelActDate2->text() + QLatin1Char(' ') + form->LabelActDate2Val->text();
    }
};

QAccessibleInterface *accessibleFor(const QString &className, QObject *object)
{
    if (className == QStringLiteral("CalendarMonthExtForm"))
        return new MainWindowAccessible(static_cast<QWidget *>(object));
    if (className == QStringLiteral("QPushButton")
        && object->objectName() == QStringLiteral("ButtFocus")
        && qobject_cast<CalendarMonthExtForm *>(object->parent())) {
        return new FocusHolderAccessible(static_cast<QWidget *>(object));
    }
    return nullptr;
}

} // namespace

namespace MainFormBuilder {

void nameControls(CalendarMonthExtForm &form, const QString &language)
{
    for (const Captions::ControlName &control : Captions::ControlNames) {
        if (auto *w = form.findChild<QWidget *>(QLatin1StringView(control.objectName),
                                                Qt::FindDirectChildrenOnly)) {
            w->setAccessibleName(Captions::pick(control.name, language));
        }
    }
}

void setCaptions(CalendarMonthExtForm &form, const QString &language, const QString &firstWeekDay)
{
    form.ListMonth->clear();
    form.ListMonth->addItems(Captions::monthNames(language));
    const QStringList weekdays = Captions::weekdayNames(language, firstWeekDay);
    for (int column = 1; column <= MonthGrid::ColumnCount; ++column)
        form.LabelWeekDay[static_cast<std::size_t>(column)]->setText(weekdays.at(column - 1));
    const std::pair<QLabel *, const Captions::Pair &> captions[] = {
        { form.LabelSettings, Captions::LabelSettings },
        { form.LabelAbout, Captions::LabelAbout },
        { form.LabelToday, Captions::LabelToday },
        { form.LabelTime, Captions::LabelTime },
        { form.LabelActDate2, Captions::LabelActDate2 },
        { form.LabelLeftDays, Captions::LabelLeftDays },
        { form.LabelMonth, Captions::LabelMonth },
        { form.LabelDays, Captions::LabelDays },
    };
    for (const auto &[label, caption] : captions)
        label->setText(Captions::pick(caption, language));
    nameControls(form, language);
}

QList<QWidget *> dragLabels(const CalendarMonthExtForm &form)
{
    QList<QWidget *> labels { form.LabelActDate,     form.LabelMonth,       form.LabelToday,
                              form.LabelTodayVal,    form.LabelTime,        form.LabelTimeVal,
                              form.LabelActDate2,    form.LabelActDate2Val, form.LabelLeftDays,
                              form.LabelLeftDaysVal, form.LabelDays };
    for (int column = 1; column <= MonthGrid::ColumnCount; ++column)
        labels.append(form.LabelWeekDay[static_cast<std::size_t>(column)]);
    return labels;
}

void createControls(CalendarMonthExtForm &form)
{
    using L = MainFormLayout;
    QWidget *w = &form;
    static const bool factoryInstalled = [] {
        QAccessible::installFactory(accessibleFor);
        return true;
    }();
    Q_UNUSED(factoryInstalled);

    form.LabelActDate = label(w, "LabelActDate", L::LabelActDate);
    setBold(form.LabelActDate, 12);
    form.KnCopy = pictureButton(w, "KnCopy", L::KnCopy, ButtonArt::Picture::Copy);
    form.KnMin = pictureButton(w, "KnMin", L::KnMin, ButtonArt::Picture::Minimise);
    form.KnClose = pictureButton(w, "KnClose", L::KnClose, ButtonArt::Picture::Close);

    form.LabelMonth = label(w, "LabelMonth", L::LabelMonth);
    form.ButtPrevMonth =
        pictureButton(w, "ButtPrevMonth", L::ButtPrevMonth, ButtonArt::Picture::PreviousMonth);
    form.ListMonth = named<QComboBox>(w, "ListMonth", L::ListMonth);
    form.ListMonth->setMaxVisibleItems(12);
    form.LabelMonth->setBuddy(form.ListMonth);
    form.ListYear = named<QComboBox>(w, "ListYear", L::ListYear);
    for (int year = DateRules::FirstYear; year <= DateRules::LastYear; ++year)
        form.ListYear->addItem(QStringLiteral("%1").arg(year, 4, 10, QLatin1Char('0')));
    form.ButtNextMonth =
        pictureButton(w, "ButtNextMonth", L::ButtNextMonth, ButtonArt::Picture::NextMonth);
    form.ButtUndo = pictureButton(w, "ButtUndo", L::ButtUndo, ButtonArt::Picture::Undo);
    form.ButtRedo = pictureButton(w, "ButtRedo", L::ButtRedo, ButtonArt::Picture::Redo);

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
    form.LabelSettings = label(w, "LabelSettings", L::LabelSettings);
    form.LabelAbout = label(w, "LabelAbout", L::LabelAbout);
    for (QLabel *l : { form.LabelSettings, form.LabelAbout }) {
        l->setAttribute(Qt::WA_Hover);
        l->setCursor(Qt::PointingHandCursor);
    }

    form.ButtNew = pictureButton(w, "ButtNew", L::ButtNew, ButtonArt::Picture::New);
    form.KnOk = pictureButton(w, "KnOk", L::KnOk, ButtonArt::Picture::Ok);
    form.KnOk->setText(QStringLiteral("OK"));
    static_cast<PictureButton *>(form.KnOk)->setWord(form.KnOk->text());
}

} // namespace MainFormBuilder
