#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

namespace pellam {

class SettingsStore;

/// The last files opened, newest first, kept in the settings and shown in a menu.
class RecentFiles : public QObject {
    Q_OBJECT

  public:
    static constexpr int kMaximum = 4;

    /// Fills `menu` from the settings. The store must outlive this object.
    RecentFiles(SettingsStore& settings, QMenu* menu);

    [[nodiscard]] const QStringList& paths() const { return m_paths; }

    /// Puts a file at the top; one that is there already moves up. `text`: it was opened as
    /// delimited text, whatever its name.
    void add(const QString& path, bool text = false);
    /// Whether a file of the list was opened so.
    [[nodiscard]] bool isText(const QString& path) const;
    /// Takes a file off the list.
    void remove(const QString& path);

  Q_SIGNALS:
    void chosen(const QString& path);

  private:
    [[nodiscard]] QStringList stored();
    void save();
    void fillMenu();

    SettingsStore& m_settings;
    QMenu* m_menu;
    QStringList m_paths;
    QStringList m_texts; ///< those of them that were opened as text
};

} // namespace pellam
