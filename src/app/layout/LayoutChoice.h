#pragma once

#include "delimited/layout/LayoutWishes.h"

#include <QObject>
#include <QString>

#include <functional>

class QWidget;

namespace pellam {

class CGridView;
class LayoutMemory;
class MessageSink;
class SettingsStore;
struct InternationalSettings;
struct LoadOutcome;
struct TextSample;

/// Lets a person see and change how text files are laid out: the note above the grid, the dialog
/// "Text Layout", and what is remembered for the next file.
class LayoutChoice : public QObject {
    Q_OBJECT

  public:
    struct Context {
        QWidget* window;
        SettingsStore& settings;
        CGridView& page;
        const InternationalSettings& international;
        MessageSink& messages;
        /// Loads a text file by the wishes that were made.
        std::function<void(const QString& path, const LayoutWishes& wishes)> load;
    };

    explicit LayoutChoice(const Context& context);

    /// Call after every load: tells of a layout that was not plain.
    void showLoaded(const QString& path, const LoadOutcome& outcome);

    /// Shows the dialog for a file, with what is remembered for it, and loads the file after OK.
    void openWith(const QString& path);

    /// The same for the file whose layout is told, with what it was loaded by.
    void change();

  private:
    using Wishes = std::function<LayoutWishes(const LayoutMemory&, const TextSample&)>;
    void ask(const QString& path, const Wishes& wishes);

    Context m_context;
    QString m_path;        ///< of the file on the grid
    LayoutWishes m_wishes; ///< that it was loaded by
};

} // namespace pellam
