#pragma once

#include "replay/load/ChannelChooser.h"

#include <QDialog>

#include <string>
#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;

namespace pellam {

class OptionTree;

/// Lets the person pick which channels of a large file are loaded. OK and Cancel both just close:
/// what is chosen is what was collected until then.
class COptionTreeDlg : public QDialog, public ChannelChooser {
    Q_OBJECT

  public:
    explicit COptionTreeDlg(QWidget* parent = nullptr);

    /// Offers the labels, runs the dialog modally and gives those chosen.
    std::vector<std::string> choose(const std::vector<std::string>& offered) override;

    /// Fills the tree anew with labels of the form "A.Temp.Ave(degC){0}", none of them chosen.
    void offer(const std::vector<std::string>& offered);
    /// The labels chosen so far, each once, in the order of the file.
    [[nodiscard]] std::vector<std::string> chosen() const;

    [[nodiscard]] OptionTree* tree() const { return m_tree; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildLayout();
    void collect(int group, int index, bool checked);
    void filterChanged(const QString& text);
    void showCount();

    QLineEdit* m_filter;
    OptionTree* m_tree;
    QPushButton* m_all;
    QPushButton* m_none;
    QLabel* m_count;

    std::vector<std::string> m_offered;
    std::vector<std::size_t> m_firstEqual; ///< for each label the first one equal to it
    std::vector<bool> m_chosen;            ///< by first equal label
};

} // namespace pellam
