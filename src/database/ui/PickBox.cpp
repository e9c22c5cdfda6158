#include "database/ui/PickBox.h"

#include "database/sessions/SqlTerm.h"
#include "database/ui/TextListModel.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QLineEdit>
#include <QListView>
#include <QStringListModel>
#include <QWheelEvent>

namespace pellam {

PickBox::PickBox(QWidget* parent)
    : QComboBox(parent),
      m_list(new TextListModel(this)),
      m_offered(new QStringListModel(this)) {
    setEditable(true);
    setInsertPolicy(NoInsert);
    // A list may hold a text twice; and finding out by looking at all of them would take time.
    setDuplicatesEnabled(true);
    setMinimumContentsLength(34);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMaxVisibleItems(16);
    auto* view = new QListView(this);
    view->setUniformItemSizes(true);
    setView(view);
    setModel(m_list);
    // On leaving, the field would look for its text in the whole list and choose it; that is the
    // person's to do.
    lineEdit()->disconnect(SIGNAL(editingFinished()), this);

    auto* completer = new QCompleter(m_offered, this);
    completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    // The field's own: the box would look in its list for what was chosen.
    lineEdit()->setCompleter(completer);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
        offer(text);
        Q_EMIT typed();
    });
    connect(completer, qOverload<const QString&>(&QCompleter::activated), this, &PickBox::take);
    connect(this, &QComboBox::activated, this, &PickBox::picked);
    // A mnemonic goes to another field past the texts that are offered.
    connect(qApp, &QApplication::focusChanged, this, [this, completer](QWidget*, QWidget* now) {
        const bool left = now && now != this && now != lineEdit() && now->window() == window();
        if (left) completer->popup()->hide();
    });
}

void PickBox::setTexts(TextList texts) {
    const auto text = currentText();
    m_list->setTexts(std::move(texts));
    setCurrentIndex(-1);
    setEditText(text);
}

void PickBox::selectFirst() {
    if (count() > 0) setCurrentIndex(0);
}

void PickBox::forget(const QString& text) {
    const bool chosen = currentIndex() >= 0 && itemText(currentIndex()) == currentText();
    setTexts({});
    if (chosen) setEditText(text);
}

std::string PickBox::bytes() const {
    const auto row = currentIndex();
    if (row >= 0 && itemText(row) == currentText())
        return std::string(m_list->texts()[static_cast<std::size_t>(row)]);
    return currentText().toStdString();
}

void PickBox::showPopup() {
    if (m_fill && !m_fill()) return;
    QComboBox::showPopup();
}

void PickBox::wheelEvent(QWheelEvent* event) {
    // Turning the wheel over a field would ask the database at every notch.
    event->ignore();
}

void PickBox::offer(const QString& text) {
    const bool pattern = hasWildcards(text.toStdString());
    m_offered->setStringList(text.isEmpty() || pattern ? QStringList()
                                                       : m_list->containing(text, kOffered));
}

void PickBox::take(const QString& text) {
    const int row = m_list->rowOf(text);
    if (row < 0) return;
    setCurrentIndex(row);
    Q_EMIT activated(row);
}

} // namespace pellam
