#include "app/dialogs/AboutBox.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace pellam {

AboutBox::AboutBox(const QIcon& icon, QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("About Pellam"));
    auto* picture = new QLabel;
    picture->setPixmap(icon.pixmap(QSize(64, 64), devicePixelRatioF()));
    picture->setAlignment(Qt::AlignTop);

    auto* text =
        new QLabel(tr("<p style='font-size:large'><b>Pellam - Historical Data Viewer</b></p>"
                      "<p>Version %1</p>"
                      "<p>Shows, exports and prints what data loggers recorded.</p>"
                      "<p>Free software under the MIT licence; it comes without any warranty.<br>"
                      "Uses Qt %2 under the GNU Lesser General Public License, version 3.</p>")
                       .arg(QStringLiteral(PELLAM_VERSION), QString::fromUtf8(qVersion())));
    text->setTextFormat(Qt::RichText);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setObjectName(QStringLiteral("aboutText"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* aboutQt = buttons->addButton(tr("About &Qt"), QDialogButtonBox::HelpRole);
    connect(aboutQt, &QPushButton::clicked, this, [this] { QMessageBox::aboutQt(this); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    buttons->button(QDialogButtonBox::Close)->setFocus();

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(20, 16, 20, 16);
    layout->setHorizontalSpacing(20);
    layout->addWidget(picture, 0, 0);
    layout->addWidget(text, 0, 1);
    layout->addWidget(buttons, 1, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace pellam
