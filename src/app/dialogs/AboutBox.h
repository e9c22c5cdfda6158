#pragma once

#include <QDialog>

namespace pellam {

/// The box of "&About...": name, version, licence and the notice for the window toolkit.
class AboutBox : public QDialog {
    Q_OBJECT

  public:
    explicit AboutBox(const QIcon& icon, QWidget* parent);
};

} // namespace pellam
