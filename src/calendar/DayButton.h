#pragma once

#include <QDate>
#include <QPushButton>

#include <cstdint>

class MonthGrid;
struct SchemePalette;

// One cell of the month grid: a flat button painted in the scheme's colour for its back colour.
class DayButton : public QPushButton
{
    Q_OBJECT

public:
    DayButton(int index, QWidget *parent);

    // 1..42, top-left first.
    int index() const { return m_index; }
    std::uint32_t backColor() const { return m_backColor; }
    void setBackColor(std::uint32_t bgr);
    // Today's cell carries a ring of its own, so that it shows beside a selected day.
    bool isToday() const { return m_today; }
    void setToday(bool today);
    void setScheme(const SchemePalette &palette);
    // Shows this cell of `grid`: its day, colour and today's ring, and a screen-reader name in
    // `language` with the full date (a blank cell's is the date it leads to).
    void showCell(const MonthGrid &grid, QDate today, QDate selected, const QString &language);

Q_SIGNALS:
    void focusGained(int index, Qt::FocusReason reason);
    // An arrow key asks to move the focus by `offset` cells (one column or one row of seven).
    void moveRequested(int index, int offset);
    // The wheel turned over the cell by `angle` (120 per notch); the window steps the month.
    void wheelTurned(int angle);

protected:
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    int m_index;
    std::uint32_t m_backColor = 0xE0E0E0;
    bool m_today = false;
    const SchemePalette *m_palette;
};
