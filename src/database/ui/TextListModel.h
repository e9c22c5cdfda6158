#pragma once

#include "database/sessions/TextList.h"

#include <QAbstractListModel>
#include <QStringList>

#include <optional>

namespace pellam {

/// A list of texts from a database for a drop-down list; stays quick with a million of them.
class TextListModel : public QAbstractListModel {
    Q_OBJECT

  public:
    using QAbstractListModel::QAbstractListModel;

    void setTexts(TextList texts);

    [[nodiscard]] const TextList& texts() const { return m_texts; }

    /// The first texts that contain `part`, at most `limit`; capitals do not count.
    [[nodiscard]] QStringList containing(const QString& part, int limit) const;
    /// The first row that shows exactly this text; -1 when there is none.
    [[nodiscard]] int rowOf(const QString& shown) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index,
                                int role = Qt::DisplayRole) const override;
    /// Typing in the open list asks for one text that begins so: that is answered quickly.
    [[nodiscard]] QModelIndexList match(const QModelIndex& start, int role, const QVariant& value,
                                        int hits, Qt::MatchFlags flags) const override;

  private:
    [[nodiscard]] QString shown(std::size_t index) const;
    [[nodiscard]] const TextList& folded() const;

    TextList m_texts;
    mutable std::optional<TextList> m_folded; ///< for searching; made when it is first needed
};

} // namespace pellam
