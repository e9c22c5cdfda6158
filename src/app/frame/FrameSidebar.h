#pragma once

#include <QWidget>

namespace pellam {

class FrameActions;
class TaskSidebar;

/// The left edge of the main window: the banner and below it the task sidebar with its groups. One
/// group of options follows the page in front.
class FrameSidebar : public QWidget {
    Q_OBJECT

  public:
    enum class Options { Grid, Trend };

    FrameSidebar(const FrameActions& actions, QWidget* parent);

    /// Shows the group of options of a page and takes the other one away.
    void showOptions(Options options);

    /// Takes this width in pixels; 0 or less hides it.
    void setStoredWidth(int width);

    [[nodiscard]] TaskSidebar* tasks() const { return m_tasks; }

  private:
    void addBanner();
    void addFixedGroups();

    const FrameActions& m_actions;
    TaskSidebar* m_tasks;
};

} // namespace pellam
