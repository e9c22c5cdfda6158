#pragma once

#include "database/sessions/TextList.h"

#include <QComboBox>

#include <functional>
#include <string>

QT_BEGIN_NAMESPACE
class QCompleter;
class QStringListModel;
QT_END_NAMESPACE

namespace pellam {

class TextListModel;

/// A field that can be typed in, with a drop-down list that is filled when it opens. While a person
/// types, the texts of the list that contain what was typed are offered.
class PickBox : public QComboBox {
    Q_OBJECT

  public:
    /// Most texts offered while typing.
    static constexpr int kOffered = 50;

    explicit PickBox(QWidget* parent = nullptr);

    /// Called before the list opens; false keeps it closed.
    void setFill(std::function<bool()> fill) { m_fill = std::move(fill); }

    /// Gives the list its texts; the field is left alone.
    void setTexts(TextList texts);
    /// Chooses the first text of the list for the field; an empty list leaves the field alone.
    void selectFirst();

    /// Empties the list; a field whose text was chosen from it takes `text` instead.
    void forget(const QString& text);

    /// The field's bytes: those of the list's text when one is chosen, else UTF-8.
    [[nodiscard]] std::string bytes() const;

    void showPopup() override;

  Q_SIGNALS:
    /// The person chose a text of the list.
    void picked();
    /// The person changed the field by typing.
    void typed();

  protected:
    void wheelEvent(QWheelEvent* event) override;

  private:
    void offer(const QString& text);
    void take(const QString& text);

    TextListModel* m_list;
    QStringListModel* m_offered;
    std::function<bool()> m_fill;
};

} // namespace pellam
