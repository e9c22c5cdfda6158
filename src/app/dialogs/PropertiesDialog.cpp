#include "app/dialogs/PropertiesDialog.h"

#include "base/Utf8.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>

namespace pellam {

PropertiesDialog::PropertiesDialog(const std::vector<FileFact>& facts, const QString& marked,
                                   QWidget* parent)
    : QDialog(parent),
      m_list(new QTreeWidget) {
    setWindowTitle(tr("Properties"));
    m_list->setHeaderLabels({tr("Property"), tr("Value")});
    m_list->setRootIsDecorated(false);
    m_list->setAllColumnsShowFocus(true);
    m_list->setAlternatingRowColors(true);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setUniformRowHeights(true);
    m_list->setAccessibleName(tr("Properties of the file"));
    fill(facts, marked);

    auto* copyRows = new QAction(tr("&Copy"), m_list);
    copyRows->setShortcut(QKeySequence::Copy);
    copyRows->setShortcutContext(Qt::WidgetShortcut);
    connect(copyRows, &QAction::triggered, this, &PropertiesDialog::copy);
    m_list->addAction(copyRows);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* copyButton = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    copyButton->setToolTip(tr("Copy the chosen rows, or all where none is chosen"));
    connect(copyButton, &QPushButton::clicked, this, &PropertiesDialog::copy);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addWidget(buttons);
    resize(640, 480);
}

void PropertiesDialog::fill(const std::vector<FileFact>& facts, const QString& marked) {
    for (const auto& fact : facts) {
        auto name = QString::fromStdString(fact.name);
        const bool chosen = name == marked;
        name[0] = name[0].toUpper();
        // A file's bytes need not be UTF-8.
        const auto value = QString::fromStdString(toUtf8(fact.value));
        auto* item = new QTreeWidgetItem(m_list, {name, value});
        item->setToolTip(1, value);
        if (!chosen) continue;
        item->setSelected(true);
        if (m_list->selectedItems().size() == 1)
            m_list->setCurrentItem(item, 0, QItemSelectionModel::NoUpdate);
    }
    m_list->resizeColumnToContents(0);
    m_list->header()->setStretchLastSection(true);
    if (auto* item = m_list->currentItem()) m_list->scrollToItem(item);
}

QString PropertiesDialog::text() const {
    const bool all = m_list->selectedItems().isEmpty();
    QString rows;
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        const auto* item = m_list->topLevelItem(i);
        if (all || item->isSelected()) rows += item->text(0) + u'\t' + item->text(1) + u'\n';
    }
    return rows;
}

void PropertiesDialog::copy() const {
    QApplication::clipboard()->setText(text());
}

} // namespace pellam
