#include "ui/dialogs/MessageMemory.h"
#include "ui/dialogs/ShowMessage.h"

#include <map>

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

class MapStore : public AnswerStore {
  public:
    std::optional<int> load(const QString& id) override {
        const auto found = kept.find(id);
        return found == kept.end() ? std::nullopt : std::optional(found->second);
    }

    void store(const QString& id, int answer) override { kept[id] = answer; }

    void clear() override { kept.clear(); }

    std::map<QString, int> kept;
};

class MessageMemoryTest : public testing::Test {
  protected:
    /// Asks; when a box appears, ticks "Don't ask me again" or not and presses a button.
    QMessageBox::StandardButton ask(bool tick, QMessageBox::StandardButton button,
                                    const QString& id = u"overwrite"_s) {
        m_asked = false;
        QTimer::singleShot(0, qApp, [this, tick, button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return;
            m_asked = true;
            box->checkBox()->setChecked(tick);
            box->button(button)->click();
        });
        const auto answer = m_memory.question(nullptr, id, u"Overwrite <b>a.csv</b>?"_s, kButtons);
        QCoreApplication::processEvents();
        return answer;
    }

    static constexpr QMessageBox::StandardButtons kButtons =
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    MapStore m_store;
    MessageMemory m_memory{m_store};
    bool m_asked = false;
};

TEST_F(MessageMemoryTest, AsksUntilTheBoxIsTicked) {
    EXPECT_EQ(ask(false, QMessageBox::No), QMessageBox::No);
    EXPECT_TRUE(m_asked);
    EXPECT_EQ(ask(true, QMessageBox::Yes), QMessageBox::Yes);
    EXPECT_TRUE(m_asked);
    EXPECT_EQ(ask(false, QMessageBox::No), QMessageBox::Yes);
    EXPECT_FALSE(m_asked);
    EXPECT_EQ(ask(false, QMessageBox::No, u"another"_s), QMessageBox::No);
    EXPECT_TRUE(m_asked) << "another question is asked all the same";
    m_memory.clear();
    EXPECT_EQ(ask(false, QMessageBox::No), QMessageBox::No);
    EXPECT_TRUE(m_asked);
}

TEST_F(MessageMemoryTest, CancelIsNeverKept) {
    EXPECT_EQ(ask(true, QMessageBox::Cancel), QMessageBox::Cancel);
    EXPECT_TRUE(m_store.kept.empty());
}

TEST_F(MessageMemoryTest, KeptValueThatIsNoButtonIsIgnored) {
    for (const int damaged : {0, -1, 7, int{QMessageBox::Apply}}) {
        m_store.kept[u"overwrite"_s] = damaged;
        EXPECT_EQ(ask(false, QMessageBox::No), QMessageBox::No) << damaged;
        EXPECT_TRUE(m_asked) << damaged;
    }
}

TEST(ShowMessageTest, FirstWordChoosesTheIcon) {
    const Table<const char*, QMessageBox::Icon> rows = {
        {"Warning: Can not open replay file", QMessageBox::Warning},
        {"Attention: No channels", QMessageBox::Warning},
        {"Information: Done", QMessageBox::Information},
        {"The file can not be read", QMessageBox::Critical},
        {"No Warning: here", QMessageBox::Critical},
        {"", QMessageBox::Critical},
    };
    for (const auto& [text, icon] : rows)
        EXPECT_EQ(messageIcon(QString::fromLatin1(text)), icon) << text;
}

TEST(ShowMessageTest, ShowsMarkupAsItStands) {
    QTimer::singleShot(0, qApp, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        EXPECT_EQ(box->text(), u"Warning: <b>.csv");
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        box->accept();
    });
    showMessage(nullptr, u"Warning: <b>.csv"_s);
}

} // namespace
} // namespace pellam
