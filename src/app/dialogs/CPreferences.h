#pragma once

#include <QDialog>
#include <QString>

#include <functional>

namespace pellam {

class FolderEdit;

/// The preferences dialog: edits the default save folder.
class CPreferences : public QDialog {
    Q_OBJECT

  public:
    using Load = std::function<QString()>;
    using Save = std::function<void(const QString& folder)>;

    /// `load` gives the folder to begin with; `save` is called with the new one on OK only.
    CPreferences(const Load& load, Save save, QWidget* parent = nullptr);

    /// OK: offers to create a folder that does not exist; stays open when the person goes back or
    /// the folder cannot be made.
    void accept() override;

    [[nodiscard]] FolderEdit* saveFolder() const { return m_folder; }

  private:
    [[nodiscard]] bool folderIsReady(const QString& path);

    FolderEdit* m_folder;
    Save m_save;
};

} // namespace pellam
