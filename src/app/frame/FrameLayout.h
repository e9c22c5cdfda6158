#pragma once

class QMainWindow;
class QToolBar;

namespace pellam {

class FrameSidebar;
class SettingsStore;

/// Where things are in the main window, and the settings that remember it: the window's place, the
/// width of the sidebar, the toolbar.
class FrameLayout {
  public:
    static constexpr int kSidebarWidth = 225;  ///< pixels, when shown
    static constexpr int kWidestSidebar = 600; ///< whatever is stored

    /// What is handed in outlives this object.
    FrameLayout(QMainWindow& window, SettingsStore& settings, FrameSidebar& sidebar,
                QToolBar& toolbar);

    /// Puts the window where it was last, or gives it a size that fits the screen.
    void restoreWindow();
    void saveWindow() const;

    /// Hides the sidebar or shows it at its width of 225, and remembers which.
    void toggleSidebar();
    /// Hides or shows the toolbar, and remembers which.
    void toggleToolbar();
    /// Lays sidebar and toolbar out as they are stored; a print preview has neither.
    void layOut(bool preview);

    /// As stored, also during a preview.
    [[nodiscard]] bool hasSidebar() const { return m_sidebarWidth > 0; }

    [[nodiscard]] bool hasToolbar() const { return m_toolbarShown; }

  private:
    [[nodiscard]] int storedSidebarWidth() const;

    QMainWindow& m_window;
    SettingsStore& m_settings;
    FrameSidebar& m_sidebar;
    QToolBar& m_toolbar;
    int m_sidebarWidth = 0; ///< as stored; 0 is hidden
    bool m_toolbarShown = true;
};

} // namespace pellam
