#pragma once

#include "trend/reading/BoundText.h"

#include <QWidget>

#include <array>
#include <optional>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace pellam {

/// The page "Axis Properties": title, logarithmic or not, and shown range of the six Y axes.
class CChartAxis : public QWidget {
    Q_OBJECT
  public:
    static constexpr int kAxes = 6;

    /// What the page says about one axis.
    struct Axis {
        QString title;
        int logarithmic = 0; ///< 0 or 1
        double minimum = 0;
        double maximum = 0;
        bool operator==(const Axis&) const = default;
    };

    /// Numbers are written with this decimal separator and read with it or a point.
    explicit CChartAxis(char decimalSeparator, QWidget* parent = nullptr);

    /// Fills the row of an axis, 1 to 6. `used`: whether curves are drawn against it.
    void setAxis(int axis, const Axis& values, bool used);
    /// The row of an axis as it was typed; nothing when one of its numbers can't be read.
    [[nodiscard]] std::optional<Axis> axis(int axis) const;

    /// The row of an axis as it was filled.
    [[nodiscard]] const Axis& given(int axis) const;

    /// Whether all rows can be taken over. If not, tells why and puts the cursor there.
    bool validate();

    /// The reason that validate() gave; empty when there is none.
    [[nodiscard]] QString error() const;

  private:
    struct Row {
        QLineEdit* title;
        QCheckBox* logarithmic;
        QLineEdit* minimum;
        QLineEdit* maximum;
        Axis given;
        BoundTexts texts; ///< of the given bounds
        QString typed;    ///< minimum that is typed, while that of a logarithmic axis is shown
    };

    void addHeadings(QGridLayout* grid);
    void addRow(QGridLayout* grid, int axis);
    QLineEdit* addNumber(QGridLayout* grid, int axis, int column, const QString& name);
    void setLogarithmic(Row& row, bool on);
    void showLogarithmicMinimum(const Row& row);
    [[nodiscard]] std::optional<double> minimum(const Row& row) const;
    [[nodiscard]] std::optional<double> maximum(const Row& row) const;
    [[nodiscard]] std::optional<double> number(const QString& text) const;
    [[nodiscard]] QString written(const QString& number) const;
    bool refuse(QLineEdit* field, const QString& why);
    bool validateRow(int axis);

    std::array<Row, kAxes> m_rows{};
    QLabel* m_error;
    char m_separator;
};

} // namespace pellam
