#include "app/frame/PageCommands.h"

#include "app/frame/FrameActions.h"
#include "views/chart/CTrendView.h"
#include "views/grid/CGridView.h"

namespace pellam {

void connectPageCommands(FrameActions& actions, CGridView& grid, CTrendView& chart) {
    actions.on(Command::Cut, [&grid] { grid.cut(); });
    actions.on(Command::CopyWithHeadings, [&grid] { grid.copyWithHeadings(); });
    actions.on(Command::Paste, [&grid] { grid.paste(); });
    actions.on(Command::Find, [&grid] { grid.find(); });
    actions.on(Command::FindNext, [&grid] { grid.findNext(); });
    actions.on(Command::FindPrevious, [&grid] { grid.findPrevious(); });
    actions.on(Command::GoTo, [&grid] { grid.goTo(); });
    actions.on(Command::NextDamaged, [&grid] { grid.nextDamagedLine(); });
    actions.on(Command::PreviousDamaged, [&grid] { grid.previousDamagedLine(); });

    actions.on(Command::EditAxis, [&chart] { chart.OnEditAxis(); });
    actions.on(Command::AutoScale, [&chart] { chart.OnTrendSanity(); });
    actions.on(Command::SelectionZoom, [&chart] { chart.OnViewZoom(); });
    actions.on(Command::IncreaseFont, [&chart] { chart.OnViewIncreasefontsize(); });
    actions.on(Command::DecreaseFont, [&chart] { chart.OnViewDecreasefontsize(); });
    actions.on(Command::StripChart, [&chart] { chart.toggleStripChart(); });
}

} // namespace pellam
