#include "app/frame/FrameSidebar.h"

#include "app/frame/FrameActions.h"
#include "ui/icons/IconSet.h"
#include "ui/sidebar/SideBanner.h"
#include "ui/sidebar/TaskSidebar.h"

#include <QBoxLayout>

#include <span>

namespace pellam {

namespace {

struct Task {
    const char* text;
    Command command;
};

constexpr Task kDoTasks[] = {
    {"Open a historical data file", Command::Open},
    {"Open a session from database", Command::OpenDatabase},
    {"Export the data", Command::Export},
    {"View with external spreadsheet", Command::ViewSpreadsheet},
    {"Print the current view", Command::Print},
    {"Print preview the current view", Command::PrintPreview},
    {"Change my preferences", Command::Preferences},
    {"Reset don't ask me again dialogues", Command::ResetMessages},
};
constexpr Task kViewTasks[] = {
    {"View historical data on a grid", Command::DataGrid},
    {"View historical data on a chart", Command::TrendChart},
};
constexpr Task kGridTasks[] = {
    {"Select all channels", Command::SelectAllChannels},
    {"Deselect all channels", Command::DeselectAllChannels},
};
constexpr Task kTrendTasks[] = {
    {"Edit Axes", Command::EditAxis},
    {"Auto scale", Command::AutoScale},
    {"Selection zoom", Command::SelectionZoom},
    {"Increase font size", Command::IncreaseFont},
    {"Decrease font size", Command::DecreaseFont},
};

struct Group {
    const char* title;
    IconName icon;
    std::span<const Task> tasks;
};

const Group kDo = {"What do you want to do?", IconName::Tasks, kDoTasks};
const Group kView = {"What do you want to view?", IconName::View, kViewTasks};
const Group kGridOptions = {"Grid Options", IconName::Grid, kGridTasks};
const Group kTrendOptions = {"Trend Options", IconName::Chart, kTrendTasks};

void add(TaskSidebar& sidebar, const FrameActions& actions, const Group& group) {
    // A group's title is also its id: no two are the same.
    const auto id = QString::fromLatin1(group.title);
    if (sidebar.hasGroup(id)) return;
    sidebar.addGroup(id, id, IconSet::icon(group.icon));
    for (const auto& task : group.tasks)
        sidebar.addTask(id, actions.action(task.command), QString::fromLatin1(task.text));
}

} // namespace

FrameSidebar::FrameSidebar(const FrameActions& actions, QWidget* parent)
    : QWidget(parent),
      m_actions(actions),
      m_tasks(new TaskSidebar) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    addBanner();
    column->addWidget(m_tasks, 1);
    addFixedGroups();
}

void FrameSidebar::addBanner() {
    auto* banner = new SideBanner;
    banner->setIcon(IconSet::applicationIcon());
    banner->setCaption(tr("Pellam - Historical Data Viewer"));
    banner->setTitle(QStringLiteral("Tarnholt Limited"));
    layout()->addWidget(banner);
}

void FrameSidebar::addFixedGroups() {
    add(*m_tasks, m_actions, kDo);
    add(*m_tasks, m_actions, kView);
}

void FrameSidebar::showOptions(Options options) {
    const bool grid = options == Options::Grid;
    m_tasks->removeGroup(QString::fromLatin1((grid ? kTrendOptions : kGridOptions).title));
    add(*m_tasks, m_actions, grid ? kGridOptions : kTrendOptions);
}

void FrameSidebar::setStoredWidth(int width) {
    setVisible(width > 0);
    if (width > 0) setFixedWidth(width);
}

} // namespace pellam
