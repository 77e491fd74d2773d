#pragma once

#include <QFont>
#include <QLabel>
#include <QStaticText>

// A one-line plain-text label that lays its text out once per change instead of at every
// repaint. The window repaints all its labels on each month step.
class CaptionLabel : public QLabel
{
    Q_OBJECT

public:
    explicit CaptionLabel(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QStaticText m_layout;
    QFont m_layoutFont;
};
