#pragma once

#include <QString>
#include <QWidget>

class QLineEdit;
class QToolButton;

namespace pellam {

/// An edit field for a folder with a browse button. Folders are completed while typing, and a
/// folder dropped on the field fills it.
class FolderEdit : public QWidget {
    Q_OBJECT

  public:
    explicit FolderEdit(QWidget* parent = nullptr);

    /// The folder as typed, without surrounding blanks, a leading "~" resolved; may not exist.
    [[nodiscard]] QString path() const;
    void setPath(const QString& path);
    /// True when path() names an existing folder.
    [[nodiscard]] bool exists() const;

    /// The tool tip of the edit field.
    void setFieldToolTip(const QString& text);
    /// Title of the folder picker.
    void setPickerTitle(const QString& title);

    [[nodiscard]] QLineEdit* field() const { return m_field; }

  public Q_SLOTS:
    /// Opens the folder picker at the folder typed.
    void browse();

  Q_SIGNALS:
    void pathChanged(const QString& path);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QLineEdit* m_field;
    QToolButton* m_button;
    QString m_pickerTitle;
};

} // namespace pellam
