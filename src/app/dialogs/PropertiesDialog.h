#pragma once

#include "replay/outcome/FileFacts.h"

#include <QDialog>

class QTreeWidget;

namespace pellam {

/// What is known of the loaded file, as a list of names and values; rows can be copied.
class PropertiesDialog : public QDialog {
    Q_OBJECT

  public:
    /// `marked`: the name of the facts that are chosen, and seen, at first; empty for none.
    PropertiesDialog(const std::vector<FileFact>& facts, const QString& marked,
                     QWidget* parent = nullptr);

    /// The chosen rows as they are copied, or all where none is chosen: names and values with a tab
    /// between them.
    [[nodiscard]] QString text() const;

  private:
    void fill(const std::vector<FileFact>& facts, const QString& marked);
    void copy() const;

    QTreeWidget* m_list;
};

} // namespace pellam
