#include "app/print/GridPdf.h"

#include "base/AtomicFile.h"
#include "grid/GridData.h"
#include "views/print/GridPrinter.h"

#include <QIODevice>
#include <QPageLayout>
#include <QPdfWriter>

namespace pellam {

namespace {

/// Lets Qt write to an AtomicFile, which keeps its failure; Qt passes over it.
class FileDevice : public QIODevice {
  public:
    explicit FileDevice(AtomicFile& file) : m_file(file) {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    [[nodiscard]] bool isSequential() const override { return true; }

  protected:
    qint64 readData(char*, qint64) override { return -1; }

    qint64 writeData(const char* data, qint64 size) override {
        m_file.append({data, static_cast<std::size_t>(size)});
        return m_file.failed() ? -1 : size;
    }

  private:
    AtomicFile& m_file;
};

/// Stops the printing when the file can not be written, too.
class PrintProgress : public ProgressSink {
  public:
    PrintProgress(ProgressSink& shown, const AtomicFile& file) : m_shown(shown), m_file(file) {}

    void start(std::string_view title, std::string_view firstLine, std::int64_t first,
               std::int64_t last) override {
        m_shown.start(title, firstLine, first, last);
    }

    void addString(std::string_view text) override { m_shown.addString(text); }

    void setPosition(std::int64_t position) override { m_shown.setPosition(position); }

    bool aborted() override { return m_shown.aborted() || m_file.failed(); }

    void finish() override { m_shown.finish(); }

  private:
    ProgressSink& m_shown;
    const AtomicFile& m_file;
};

} // namespace

Failure printToPdf(const GridData& grid, const std::string& fileName, const std::string& path,
                   ProgressSink& progress) {
    AtomicFile file;
    if (Failure failure = file.create(path, &progress)) return failure;
    FileDevice device(file);
    bool printed = false;
    {
        QPdfWriter writer(&device); // writes the end of the document when it goes
        writer.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Landscape,
                              QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter});
        writer.setTitle(QString::fromStdString(fileName));
        writer.setCreator(QStringLiteral("Pellam"));
        PrintProgress watched(progress, file);
        printed = GridPrinter(grid, QString::fromStdString(fileName)).print(writer, {}, watched);
    }
    if (!file.failed() && progress.aborted()) return {Failure::Kind::Aborted, path, -1, {}};
    if (!file.failed() && !printed)
        return {Failure::Kind::Write, path, -1, "there is nothing to print"};
    return file.commit();
}

} // namespace pellam
