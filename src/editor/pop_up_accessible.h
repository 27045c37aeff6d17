#pragma once

#include <QAccessibleWidget>
#include <QComboBox>

namespace quillon {

/// A pop-up as a screen reader meets it: its name is that of its field, its value the chosen item. What the
/// toolkit tells by itself bears the chosen item as its name.
class PopUpAccessible : public QAccessibleWidget
{
public:
    explicit PopUpAccessible(QComboBox *popUp) : QAccessibleWidget(popUp, QAccessible::ComboBox) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString &name) override;

private:
    [[nodiscard]] QComboBox *popUp() const { return static_cast<QComboBox *>(widget()); }
};

/// A pop-up that a screen reader calls by its accessible name.
class NamedPopUp : public QComboBox
{
    Q_OBJECT
public:
    explicit NamedPopUp(QWidget *parent = nullptr);
};

/// Makes every widget of the class @p className, which is a QComboBox, tell of itself in this way.
void usePopUpAccessible(const char *className);

} // namespace quillon
