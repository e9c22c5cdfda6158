#pragma once

#include "ui/dialogs/AnswerStore.h"

#include <QMessageBox>
#include <QString>

namespace pellam {

/// Message boxes with a "Don't ask me again" check box. The answer of a person who ticks it is
/// kept in the store and given from then on without asking; a cancelled question is never kept.
class MessageMemory {
  public:
    /// The store is not owned and must outlive this object.
    explicit MessageMemory(AnswerStore& store) : m_store(store) {}

    /// The kept answer of `id` when it is one of `buttons`; otherwise asks and gives the button
    /// pressed. Escape and the close button give Cancel or, where it is missing, No.
    QMessageBox::StandardButton question(QWidget* parent, const QString& id, const QString& text,
                                         QMessageBox::StandardButtons buttons,
                                         QMessageBox::Icon icon = QMessageBox::Question);

    /// Forgets every kept answer.
    void clear() { m_store.clear(); }

  private:
    AnswerStore& m_store;
};

} // namespace pellam
