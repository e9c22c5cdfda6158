#pragma once

#include "app/layout/LayoutPreview.h"
#include "delimited/layout/LayoutWishes.h"

#include <QDialog>

QT_BEGIN_NAMESPACE
class QDialogButtonBox;
class QLabel;
class QTableView;
QT_END_NAMESPACE

namespace pellam {

class LayoutFields;
class SampleLinesView;
class TablePreviewModel;

/// "Text Layout": the beginning of a text file as it stands, every choice of its layout, and the
/// table that comes of them. Nothing is kept or loaded here.
class LayoutDialog : public QDialog {
    Q_OBJECT

  public:
    /// `preview` has read its file and outlives the dialog; `wishes` are what was asked for so far.
    LayoutDialog(LayoutPreview& preview, const QString& fileName, const LayoutWishes& wishes,
                 QWidget* parent = nullptr);

    /// What the person asks for; none where all is as detected.
    [[nodiscard]] const LayoutWishes& wishes() const;

  private:
    [[nodiscard]] QWidget* makeLegend() const;
    [[nodiscard]] QWidget* makeViews();
    void makeButtons();
    void follow();
    void showTable();
    [[nodiscard]] QString firstTimeInFile() const;
    [[nodiscard]] QString verdict() const;
    void fitColumns();

    LayoutPreview& m_preview;
    LayoutFields* m_fields;
    SampleLinesView* m_lines;
    QTableView* m_table;
    TablePreviewModel* m_model;
    QLabel* m_summary;
    QLabel* m_memory;
    QDialogButtonBox* m_buttons;
};

} // namespace pellam
