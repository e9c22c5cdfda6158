#pragma once

#include <QString>
#include <functional>
#include <utility>

namespace pellam {

/// The font of a chart, as its owner sets it.
class TrendFont {
  public:
    /// `changed` is called after each change of the name.
    TrendFont(QString& name, std::function<void()> changed)
        : m_name(name),
          m_changed(std::move(changed)) {}

    /// Font family; one that is not installed is replaced by a similar one when drawing.
    void SetName(const QString& name) {
        m_name = name;
        m_changed();
    }

  private:
    QString& m_name;
    std::function<void()> m_changed;
};

} // namespace pellam
