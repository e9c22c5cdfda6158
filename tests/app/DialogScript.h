#pragma once

#include <deque>
#include <functional>

namespace pellam {

/// Answers the modal dialogs that a command opens, one step a dialog, in the order in which the
/// steps were added. Steps left over at the end, or a dialog that no step is for, are failures.
class DialogScript {
  public:
    DialogScript() {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { look(); });
        m_timer.start(5);
    }

    ~DialogScript() { EXPECT_TRUE(m_steps.empty()) << m_steps.size() << " dialogs did not come"; }

    /// The next dialog must be a `Dialog`; `answer` fills it in and closes it.
    template <class Dialog>
    DialogScript& then(std::function<void(Dialog&)> answer) {
        m_steps.push_back([answer](QWidget* widget) {
            auto* dialog = qobject_cast<Dialog*>(widget);
            if (dialog) return answer(*dialog);
            ADD_FAILURE() << "another dialog: " << widget->metaObject()->className();
            widget->close();
        });
        return *this;
    }

    /// The next dialog must be a message, which is closed; `text` takes what it says.
    DialogScript& thenMessage(std::string* text = nullptr) {
        return then<QMessageBox>([text](QMessageBox& box) {
            if (text) *text = box.text().toStdString();
            box.accept();
        });
    }

  private:
    void look() {
        auto* widget = QApplication::activeModalWidget();
        // One step a dialog: a dialog that is being closed still counts as open for a while.
        // It takes typing only once it is the active window.
        if (!widget || !widget->isActiveWindow()) return;
        if (widget == m_answered) return giveUpIfStuck(widget);
        m_answered = widget;
        m_sinceAnswer.start();
        if (m_steps.empty()) {
            const auto* box = qobject_cast<QMessageBox*>(widget);
            ADD_FAILURE() << "unexpected: "
                          << (box ? box->text() : widget->windowTitle()).toStdString();
            widget->close();
            return;
        }
        const auto step = m_steps.front();
        m_steps.pop_front();
        step(widget);
    }

    void giveUpIfStuck(QWidget* widget) {
        if (m_sinceAnswer.elapsed() < 5000) return;
        ADD_FAILURE() << "still open after its answer: " << widget->windowTitle().toStdString();
        widget->close();
    }

    QTimer m_timer;
    QElapsedTimer m_sinceAnswer;
    QPointer<QWidget> m_answered;
    std::deque<std::function<void(QWidget*)>> m_steps;
};

} // namespace pellam
