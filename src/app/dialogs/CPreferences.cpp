#include "app/dialogs/CPreferences.h"

#include "ui/dialogs/FolderEdit.h"
#include "ui/dialogs/ShowMessage.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace pellam {

CPreferences::CPreferences(const Load& load, Save save, QWidget* parent)
    : QDialog(parent),
      m_folder(new FolderEdit(this)),
      m_save(std::move(save)) {
    setWindowTitle(tr("Preferences"));
    const QString name = tr("Default Save Directory");
    m_folder->setFieldToolTip(name);
    m_folder->setPickerTitle(name);
    m_folder->field()->setAccessibleName(name);
    m_folder->setPath(load());

    auto* label = new QLabel(tr("&Default Save Directory:"), this);
    label->setBuddy(m_folder->field());
    auto* hint =
        new QLabel(tr("Exports and converted files go here unless you choose otherwise."), this);
    hint->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &CPreferences::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CPreferences::reject);

    auto* column = new QVBoxLayout(this);
    column->addWidget(label);
    column->addWidget(m_folder);
    column->addWidget(hint);
    column->addStretch(1);
    column->addSpacing(8);
    column->addWidget(buttons);
}

bool CPreferences::folderIsReady(const QString& path) {
    if (path.isEmpty() || m_folder->exists()) return true;
    const QString folder = QDir(path).absolutePath();
    if (QFileInfo::exists(folder)) {
        showMessage(this, tr("Warning: \"%1\" is a file, not a folder.").arg(folder));
        return false;
    }
    QMessageBox box(QMessageBox::Question, windowTitle(),
                    tr("The folder \"%1\" does not exist. Create it?").arg(folder),
                    QMessageBox::Cancel, this);
    box.setTextFormat(Qt::PlainText);
    auto* create = box.addButton(tr("C&reate"), QMessageBox::AcceptRole);
    box.setDefaultButton(create);
    box.exec();
    if (box.clickedButton() != create) return false;
    if (QDir().mkpath(folder)) return true;
    showMessage(this, tr("Warning: The folder \"%1\" can not be created.").arg(folder));
    return false;
}

void CPreferences::accept() {
    const QString typed = m_folder->path();
    if (!folderIsReady(typed)) {
        m_folder->field()->selectAll();
        m_folder->field()->setFocus(Qt::OtherFocusReason);
        return;
    }
    // A relative folder would be another one in the next run.
    m_save(typed.isEmpty() ? typed : QDir(typed).absolutePath());
    QDialog::accept();
}

} // namespace pellam
