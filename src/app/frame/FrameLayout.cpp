#include "app/frame/FrameLayout.h"

#include "app/frame/FrameSidebar.h"
#include "settings/ProfileKeys.h"
#include "settings/SettingsStore.h"

#include <QMainWindow>
#include <QScreen>
#include <QToolBar>

#include <algorithm>

namespace pellam {

FrameLayout::FrameLayout(QMainWindow& window, SettingsStore& settings, FrameSidebar& sidebar,
                         QToolBar& toolbar)
    : m_window(window),
      m_settings(settings),
      m_sidebar(sidebar),
      m_toolbar(toolbar),
      m_toolbarShown(settings.GetProfileInt(profile::kSection, profile::kToolbar, 1) != 0) {}

void FrameLayout::restoreWindow() {
    const auto place = m_settings.GetProfileBinary(profile::kSection, profile::kWindow);
    if (m_window.restoreGeometry(place)) return;
    const auto room = m_window.screen()->availableSize() * 0.9;
    m_window.resize(QSize(1120, 740).boundedTo(room));
}

void FrameLayout::saveWindow() const {
    m_settings.WriteProfileBinary(profile::kSection, profile::kWindow, m_window.saveGeometry());
}

int FrameLayout::storedSidebarWidth() const {
    const int width =
        m_settings.GetProfileInt(profile::kSection, profile::kSidebarWidth, kSidebarWidth);
    return std::clamp(width, 0, kWidestSidebar);
}

void FrameLayout::toggleSidebar() {
    const int width = storedSidebarWidth() > 0 ? 0 : kSidebarWidth;
    m_settings.WriteProfileInt(profile::kSection, profile::kSidebarWidth, width);
}

void FrameLayout::toggleToolbar() {
    m_toolbarShown = !m_toolbarShown;
    m_settings.WriteProfileInt(profile::kSection, profile::kToolbar, m_toolbarShown ? 1 : 0);
}

void FrameLayout::layOut(bool preview) {
    m_sidebarWidth = storedSidebarWidth();
    m_sidebar.setStoredWidth(preview ? 0 : m_sidebarWidth);
    m_toolbar.setVisible(m_toolbarShown && !preview);
}

} // namespace pellam
