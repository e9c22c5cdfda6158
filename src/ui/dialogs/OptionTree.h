#pragma once

#include <QString>
#include <QTreeView>

#include <vector>

class QSortFilterProxyModel;
class QStandardItem;
class QStandardItemModel;

namespace pellam {

/// One check box of an option tree.
struct Option {
    quint32 id = 0; ///< the caller's own; need not be unique
    QString text;
    bool checked = false;
};

/// A tree of groups of check boxes. Space toggles every selected check box to the opposite of the
/// current one's state.
class OptionTree : public QTreeView {
    Q_OBJECT

  public:
    explicit OptionTree(QWidget* parent = nullptr);

    /// Removes every group and option.
    void clear();
    /// Appends a group, unfolded; gives its number, counted from 0.
    int addGroup(const QString& title);
    /// Appends options to a group; thousands at once are fine.
    void addOptions(int group, const std::vector<Option>& options);

    /// An option as it is now, by its place in the order of adding; hidden ones count. Both numbers
    /// must be of one that was added.
    [[nodiscard]] Option option(int group, int index) const;
    void setChecked(int group, int index, bool checked);

    /// Checked options of all groups, hidden ones included.
    [[nodiscard]] int checkedCount() const { return m_checkedCount; }

    /// Shows only the options whose text contains this one, whatever its case, and their groups;
    /// all when empty.
    void setFilter(const QString& text);
    /// Gives the keyboard to the first option that the filter lets through, or to the tree.
    void focusFirstOption();
    /// Options that the filter lets through.
    [[nodiscard]] int visibleCount() const;
    /// Checks or unchecks the options that the filter lets through; the others keep their state.
    void setVisibleChecked(bool checked);

  Q_SIGNALS:
    /// An option's check box changed, by hand or by program.
    void optionToggled(int group, int index, bool checked);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void report(const QStandardItem* option);

    QStandardItemModel* m_model;
    QSortFilterProxyModel* m_filter;
    int m_checkedCount = 0;
};

} // namespace pellam
