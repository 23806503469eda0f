#pragma once

#include <QAccessibleObject>

namespace sonavo {

class ProgressIndicator;

/// Exposes a ProgressIndicator to assistive technology. Qt Quick's own interface has no value for the role of
/// a progress bar. Name and description are those of the indicator's Accessible properties.
class AccessibleProgress final : public QAccessibleObject, public QAccessibleValueInterface
{
public:
    explicit AccessibleProgress(ProgressIndicator *indicator);

    /// Makes Qt use this interface for every ProgressIndicator.
    static void install();

    [[nodiscard]] QWindow *window() const override;
    [[nodiscard]] QAccessibleInterface *parent() const override;
    [[nodiscard]] QAccessibleInterface *child(int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ProgressBar; }
    [[nodiscard]] QAccessible::State state() const override;

    [[nodiscard]] QVariant currentValue() const override;
    void setCurrentValue(const QVariant &) override {}
    [[nodiscard]] QVariant maximumValue() const override;
    [[nodiscard]] QVariant minimumValue() const override;
    [[nodiscard]] QVariant minimumStepSize() const override { return {}; }

protected:
    void *interface_cast(QAccessible::InterfaceType type) override;

private:
    [[nodiscard]] ProgressIndicator &indicator() const;
};

} // namespace sonavo
