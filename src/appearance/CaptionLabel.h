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

Q_SIGNALS:
    // A left click released over the label, for labels that act as links.
    void clicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QStaticText m_layout;
    QFont m_layoutFont;
};
