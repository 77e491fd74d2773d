#include "AccessibleList.h"

#include <QAccessibleWidget>
#include <QComboBox>

namespace {

class ListAccessible : public QAccessibleWidget
{
public:
    explicit ListAccessible(QComboBox *list)
        : QAccessibleWidget(list, QAccessible::ComboBox)
    { }

    QComboBox *list() const { return static_cast<QComboBox *>(widget()); }

    QString text(QAccessible::Text t) const override
    {
        switch (t) {
        case QAccessible::Name:
            return list()->accessibleName().isEmpty() ? list()->currentText()
                                                      : list()->accessibleName();
        case QAccessible::Value:
            return list()->currentText();
        default:
            return QAccessibleWidget::text(t);
        }
    }

    QStringList actionNames() const override
    {
        return QAccessibleWidget::actionNames() << showMenuAction() << pressAction();
    }

    void doAction(const QString &action) override
    {
        if (action == showMenuAction() || action == pressAction())
            list()->showPopup();
        else
            QAccessibleWidget::doAction(action);
    }
};

} // namespace

QAccessibleInterface *accessibleList(const QString &className, QObject *object)
{
    auto *list = qobject_cast<QComboBox *>(object);
    if (className != QStringLiteral("QComboBox") || !list || !list->window()
        || !list->window()->inherits("CommonWindow")) {
        return nullptr;
    }
    return new ListAccessible(list);
}
