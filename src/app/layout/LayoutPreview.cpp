#include "app/layout/LayoutPreview.h"

#include "base/InternationalSettings.h"
#include "base/SilentSinks.h"
#include "delimited/layout/LayoutDetector.h"
#include "grid/TimeColumn.h"
#include "replay/load/ChannelChooser.h"
#include "replay/load/DelimitedLoader.h"

#include <QFile>

#include <algorithm>

namespace pellam {

LayoutPreview::LayoutPreview(const QString& path, const InternationalSettings& settings)
    : m_settings(settings),
      m_table(settings.decimalSeparator) {
    const std::string name = QFile::encodeName(path).toStdString();
    m_expected = FileLoader::separatorFor(name, settings);
    m_failure = m_sample.read(name);
    if (m_failure) return;
    const auto size = static_cast<qint64>(m_sample.head.size());
    if (!m_part.open() || m_part.write(m_sample.head.data(), size) != size || !m_part.flush())
        m_failure = {Failure::Kind::Write, m_part.fileName().toStdString(), -1,
                     m_part.errorString().toStdString()};
}

void LayoutPreview::follow(const LayoutWishes& wishes) {
    m_layout = LayoutDetector(m_expected, m_settings).detect(m_sample, wishes);
    m_table.reset();
    if (m_failure || !m_layout.notATable.empty()) return;
    TextLayout part = m_layout;
    part.dataEnd = -1; // an offset in the whole file
    const std::int64_t last = part.firstDataLine + kRows - 1;
    part.lastDataLine = part.lastDataLine > 0 ? std::min(part.lastDataLine, last) : last;
    SilentMessages messages;
    SilentProgress progress;
    AllChannels chooser;
    const LoadContext context{m_table, m_settings, messages, progress, chooser};
    DelimitedLoader(context, std::move(part))
        .ReadDelimFile(QFile::encodeName(m_part.fileName()).toStdString());
}

std::string LayoutPreview::firstTime() const {
    if (m_table.rowCount() == 0 || m_layout.timeColumns.empty()) return {};
    TimeColumn times(m_table, m_settings);
    const auto moment = times.moment(Row{0});
    if (!moment) return {};
    const bool elapsed = times.form().kind() == TimeForm::Kind::Elapsed;
    return momentText(*moment, times.form()) + (elapsed ? " s" : "");
}

} // namespace pellam
