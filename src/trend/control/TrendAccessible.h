#pragma once

#include <QAccessibleWidget>
#include <map>
#include <vector>

namespace pellam {

class CTrend;

/// One thing on the chart that assistive technology can tell.
struct TrendPartId {
    enum class Kind { TimeAxis, Scale, Curve, Crosshair, Cursor } kind = Kind::TimeAxis;
    int index = 0; ///< axis 1 to 6, curve, or cursor 0 (A) and 1 (B)
    auto operator<=>(const TrendPartId&) const = default;
};

/// The control for assistive technology: a chart whose children are the time axis, the Y scales,
/// the curves (as check boxes, like their legend buttons), the crosshair and the cursors.
class TrendAccessible : public QAccessibleWidget {
  public:
    explicit TrendAccessible(CTrend& trend);
    ~TrendAccessible() override;

    /// Makes controls of the program accessible; further calls do nothing.
    static void install();
    /// A curve was shown or hidden.
    static void curveSwitched(CTrend& trend, int curve);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    QString text(QAccessible::Text type) const override;

  private:
    CTrend& trend() const;
    std::vector<TrendPartId> parts() const;
    QAccessibleInterface* part(const TrendPartId& id) const;

    mutable std::map<TrendPartId, QAccessible::Id> m_ids;
};

} // namespace pellam
