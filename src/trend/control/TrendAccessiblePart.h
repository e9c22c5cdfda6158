#pragma once

#include "trend/control/TrendAccessible.h"

#include <QPointer>

namespace pellam {

class TrendScene;

/// A scale, curve or cursor of a chart for assistive technology.
class TrendAccessiblePart : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    TrendAccessiblePart(CTrend& trend, const TrendPartId& id);

    const TrendPartId& id() const { return m_id; }

    bool isValid() const override;

    QObject* object() const override { return nullptr; }

    QWindow* window() const override;
    QAccessibleInterface* parent() const override;

    QAccessibleInterface* child(int) const override { return nullptr; }

    QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    int childCount() const override { return 0; }

    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QString text(QAccessible::Text type) const override;

    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& name) const override;

  private:
    TrendScene& scene() const;
    QString name() const;
    QString value() const;
    QString curveValue() const;
    QString scaleValue() const;
    QRectF place() const;
    QRectF lineAt(double time) const;

    QPointer<CTrend> m_trend;
    TrendPartId m_id;
};

} // namespace pellam
