#include "DayButton.h"

#include "MonthGrid.h"
#include "appearance/BgrColor.h"
#include "appearance/Captions.h"
#include "appearance/SchemePalette.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStaticText>
#include <QWheelEvent>

#include <vector>

namespace {

// The captions are the numbers 1 to 31 in one font; a month step moves them between cells, so
// they are laid out once for all cells rather than again in each cell that changes.
const QStaticText &laidOut(const QString &caption, const QFont &font)
{
    struct Entry
    {
        QString text;
        QFont font;
        QStaticText layout;
    };
    static std::vector<Entry> cache;
    for (const Entry &e : cache) {
        if (e.text == caption && e.font == font)
            return e.layout;
    }
    if (cache.size() > 256)
        cache.clear();
    QStaticText layout(caption);
    layout.setTextFormat(Qt::PlainText);
    layout.prepare(QTransform(), font);
    cache.push_back({ caption, font, layout });
    return cache.back().layout;
}

} // namespace

DayButton::DayButton(int index, QWidget *parent)
    : QPushButton(parent)
    , m_index(index)
    , m_palette(&SchemePalettes::forScheme({}))
{
    setObjectName(QStringLiteral("ButtDay%1").arg(index));
    setProperty("index", index);
    setFlat(true);
    setAttribute(Qt::WA_Hover);
    // The cell paints every pixel itself, so nothing behind it needs repainting.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void DayButton::setBackColor(std::uint32_t bgr)
{
    if (bgr == m_backColor)
        return;
    m_backColor = bgr;
    update();
}

void DayButton::setToday(bool today)
{
    if (today == m_today)
        return;
    m_today = today;
    update();
}

void DayButton::setScheme(const SchemePalette &palette)
{
    if (&palette == m_palette)
        return;
    m_palette = &palette;
    update();
}

void DayButton::showCell(const MonthGrid &grid, QDate today, QDate selected,
                         const QString &language)
{
    const MonthGrid::Cell &cell = grid.cell(m_index);
    const QDate date = grid.dateOf(m_index);
    setText(MonthGrid::caption(cell));
    setBackColor(cell.backColor);
    setToday(date.isValid() && date == today);
    // Tab walks the days only; a blank cell is reached by a click or an arrow key.
    setFocusPolicy(cell.day > 0 ? Qt::StrongFocus : Qt::ClickFocus);
    const QDate place = date.isValid() ? date : grid.placeOf(m_index);
    const QString name = place.isValid()
        ? Captions::dayCellName(QLocale().toString(place, QLocale::LongFormat), date == today,
                                date.isValid() && date == selected, language)
        : QString();
    if (accessibleName() != name)
        setAccessibleName(name);
}

void DayButton::paintEvent(QPaintEvent *)
{
    // Square cells drawn with plain fills: crisp at any scale, and cheap enough that a month
    // step repaints all 42 of them well within a frame.
    QPainter p(this);
    const QRect box = rect();
    QColor back = colorFromBgr(m_palette->cellColor(m_backColor));
    if (isDown())
        back = back.darker(112);
    const bool blank = text().isEmpty();
    QColor edge =
        m_palette->isDark() ? back.lighter(blank ? 112 : 135) : back.darker(blank ? 108 : 125);
    if (underMouse() && isEnabled())
        edge = colorFromBgr(m_palette->frame);
    p.fillRect(box, edge);
    p.fillRect(box.adjusted(1, 1, -1, -1), back);
    const auto ring = [&p](const QRect &r, const QColor &colour) {
        p.fillRect(r.left(), r.top(), r.width(), 2, colour);
        p.fillRect(r.left(), r.bottom() - 1, r.width(), 2, colour);
        p.fillRect(r.left(), r.top(), 2, r.height(), colour);
        p.fillRect(r.right() - 1, r.top(), 2, r.height(), colour);
    };
    if (m_today)
        ring(box, colorFromBgr(m_palette->todayMark));
    if (hasFocus())
        ring(box.adjusted(3, 3, -3, -3), colorFromBgr(m_palette->frame));
    if (blank)
        return;
    const QStaticText &caption = laidOut(text(), font());
    p.setFont(font());
    QColor ink = colorFromBgr(m_palette->cellText);
    // Dimmed only when the cell itself is unavailable, not while the window waits for the
    // Settings window, which previews on it.
    if (testAttribute(Qt::WA_ForceDisabled))
        ink.setAlphaF(0.5);
    p.setPen(ink);
    const QSizeF size = caption.size();
    p.drawStaticText(QPointF((box.width() - size.width()) / 2, (box.height() - size.height()) / 2),
                     caption);
}

void DayButton::focusInEvent(QFocusEvent *event)
{
    QPushButton::focusInEvent(event);
    Q_EMIT focusGained(m_index, event->reason());
}

void DayButton::keyPressEvent(QKeyEvent *event)
{
    int offset = 0;
    switch (event->key()) {
    case Qt::Key_Left:
        offset = -1;
        break;
    case Qt::Key_Right:
        offset = 1;
        break;
    case Qt::Key_Up:
        offset = -7;
        break;
    case Qt::Key_Down:
        offset = 7;
        break;
    default:
        QPushButton::keyPressEvent(event);
        return;
    }
    event->accept();
    Q_EMIT moveRequested(m_index, offset);
}

void DayButton::wheelEvent(QWheelEvent *event)
{
    event->accept();
    Q_EMIT wheelTurned(event->angleDelta().y());
}
