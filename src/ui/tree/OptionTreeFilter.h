#pragma once

#include <QSortFilterProxyModel>
#include <QString>

namespace pellam {

/// Lets through the options whose text contains a text, whatever its case, and every group.
class OptionTreeFilter : public QSortFilterProxyModel {
    Q_OBJECT

  public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setText(const QString& text);
    [[nodiscard]] bool passes(const QString& text) const;

  protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

  private:
    QString m_text;
};

} // namespace pellam
