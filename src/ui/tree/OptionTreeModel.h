#pragma once

#include <QAbstractItemModel>
#include <QString>

#include <vector>

namespace pellam {

/// One check box of an option tree.
struct Option {
    quint32 id = 0; ///< the caller's own; need not be unique
    QString text;
    bool checked = false;
};

/// Groups of options: a tree two levels deep, group rows at the top.
class OptionTreeModel : public QAbstractItemModel {
    Q_OBJECT

  public:
    using QAbstractItemModel::QAbstractItemModel;

    void clear();
    int addGroup(const QString& title);
    void addOptions(int group, std::vector<Option> options);

    [[nodiscard]] int groupCount() const { return static_cast<int>(m_groups.size()); }

    [[nodiscard]] int optionCount(int group) const;
    [[nodiscard]] const Option& option(int group, int index) const;
    void setChecked(int group, int index, bool checked);

    [[nodiscard]] int checkedCount() const { return m_checkedCount; }

    [[nodiscard]] QModelIndex index(int row, int column,
                                    const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

  Q_SIGNALS:
    /// An option's check box changed.
    void optionToggled(int group, int index, bool checked);

  private:
    struct Group {
        QString title;
        std::vector<Option> options;
    };

    /// The group that an option's row belongs to; -1 for a group row.
    static int groupOf(const QModelIndex& index);
    bool isOption(const QModelIndex& index) const;

    std::vector<Group> m_groups;
    int m_checkedCount = 0;
};

} // namespace pellam
