#pragma once

#include "ui/tree/OptionTreeModel.h"

#include <QTreeView>

namespace pellam {

class OptionTreeFilter;

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
    void addOptions(int group, std::vector<Option> options);
    void addOption(int group, quint32 id, const QString& text, bool checked = false);

    /// Options of a group, in the order of adding, hidden ones included.
    [[nodiscard]] int optionCount(int group) const;
    [[nodiscard]] const Option& option(int group, int index) const;
    void setChecked(int group, int index, bool checked);
    /// Checked options of all groups, hidden ones included.
    [[nodiscard]] int checkedCount() const;

    /// Shows only the options whose text contains this one, whatever its case; all when empty.
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
    OptionTreeModel* m_model;
    OptionTreeFilter* m_filter;
};

} // namespace pellam
