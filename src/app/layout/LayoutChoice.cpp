#include "app/layout/LayoutChoice.h"

#include "app/layout/LayoutDialog.h"
#include "app/layout/LayoutMemory.h"
#include "app/layout/LayoutPreview.h"
#include "base/MessageSink.h"
#include "delimited/layout/LayoutText.h"
#include "replay/outcome/LoadOutcome.h"
#include "views/grid/CGridView.h"

#include <QFileInfo>

namespace pellam {

namespace {

// One line that tells of the layout; empty where there is nothing to tell.
QString noteOn(const LoadOutcome& outcome) {
    if (!outcome.loaded || outcome.kind != LoadOutcome::Kind::Delimited) return {};
    QString summary = QString::fromStdString(layoutSummary(outcome.layout));
    if (!outcome.wishes.any()) return summary;
    if (summary.isEmpty()) return LayoutChoice::tr("Text layout as you set it");
    summary[0] = summary[0].toLower();
    return LayoutChoice::tr("As you set it: %1").arg(summary);
}

} // namespace

LayoutChoice::LayoutChoice(const Context& context) : QObject(context.window), m_context(context) {
    connect(&m_context.page, &CGridView::noteChosen, this, &LayoutChoice::change);
}

void LayoutChoice::showLoaded(const QString& path, const LoadOutcome& outcome) {
    m_path = path;
    m_wishes = outcome.wishes;
    m_context.page.showNote(noteOn(outcome));
}

void LayoutChoice::openWith(const QString& path) {
    ask(path, &LayoutMemory::recall);
}

void LayoutChoice::change() {
    const LayoutWishes wishes = m_wishes;
    ask(m_path, [&wishes](const LayoutMemory&, const TextSample&) { return wishes; });
}

void LayoutChoice::ask(const QString& path, const Wishes& wishes) {
    LayoutPreview preview(path, m_context.international);
    if (preview.failure()) return m_context.messages.show(preview.failure().text());
    LayoutMemory memory(m_context.settings);
    LayoutDialog dialog(preview, QFileInfo(path).fileName(), wishes(memory, preview.sample()),
                        m_context.window);
    if (dialog.exec() != QDialog::Accepted) return;
    memory.remember(preview.sample(), preview.layout(), dialog.wishes());
    m_context.load(path, dialog.wishes());
}

} // namespace pellam
