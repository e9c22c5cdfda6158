#pragma once

#include "delimited/layout/LayoutWishes.h"
#include "delimited/layout/TextLayout.h"

#include <QWidget>

#include <array>
#include <string>

QT_BEGIN_NAMESPACE
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QSpinBox;
QT_END_NAMESPACE

namespace pellam {

/// Every choice of a text layout as a field that holds what was found; what a person changes
/// becomes a wish, and its label bold.
class LayoutFields : public QWidget {
    Q_OBJECT

  public:
    /// `detected` is the layout that is found without any wish; lines can be chosen up to `lines`.
    LayoutFields(const TextLayout& detected, std::int64_t lines, QWidget* parent = nullptr);

    [[nodiscard]] const LayoutWishes& wishes() const { return m_wishes; }

    /// Takes other wishes, as if they had been typed.
    void setWishes(const LayoutWishes& wishes);

    /// Shows the layout that the wishes led to, and how a time is read: its text in the file and
    /// what that means (empty when it can't be read).
    void showLayout(const TextLayout& layout);
    void showTime(const QString& inFile, const QString& meaning);

    /// Whether every field holds something that it may hold.
    [[nodiscard]] bool isValid() const { return m_wrong.empty(); }

  Q_SIGNALS:
    /// A wish has changed, or whether all fields are valid.
    void changed();

  private:
    using Option = std::string (*)(std::string_view value, LayoutWishes& wishes);

    void addChoices(QFormLayout& form, const TextLayout& detected);
    void addLines(QFormLayout& form, std::int64_t lines);
    void addTimes(QFormLayout& form, const TextLayout& detected);
    void addRow(QFormLayout& form, const QString& text, QWidget* field, const char* option);
    void take(const char* option, const QString& value);
    void markWishes();
    void showText(QLineEdit& field, const std::string& text);

    TextLayout m_detected;
    LayoutWishes m_wishes;
    std::string m_wrong; ///< option of a field that holds nothing to follow; empty: all are right
    bool m_showing = false;

    struct Row {
        QLabel* label;
        QWidget* field;
        std::string option;
    };

    std::vector<Row> m_rows;
    QLabel* m_encoding;
    QComboBox* m_separator;
    QComboBox* m_quote;
    QComboBox* m_decimal;
    QSpinBox* m_headings;
    QSpinBox* m_units;
    QSpinBox* m_data;
    QLineEdit* m_timeColumns;
    QComboBox* m_timeFormat;
    QLineEdit* m_missing;
    QLabel* m_sample;
};

} // namespace pellam
