#include "app/dialogs/COptionTreeDlg.h"

#include "base/Utf8.h"
#include "grid/ChannelLabel.h"
#include "ui/dialogs/OptionTree.h"
#include "ui/icons/IconSet.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace pellam {

namespace {

/// The check box of a label such as "A.Temp.Ave(degC){0}": its text is what stands before the
/// braces, its identifier the schedule letter in the high 16 bits and the number in the braces in
/// the low 16.
Option optionOf(const std::string& channel) {
    const auto label = ChannelLabel::numbered(channel);
    const quint32 letter = static_cast<unsigned char>(label.letter);
    const auto number = static_cast<quint32>(std::max(0, label.number));
    return {letter << 16 | (number & 0xffffu), QString::fromStdString(toUtf8(label.text)), false};
}

} // namespace

COptionTreeDlg::COptionTreeDlg(QWidget* parent)
    : QDialog(parent),
      m_filter(new QLineEdit(this)),
      m_tree(new OptionTree(this)),
      m_all(new QPushButton(tr("&Select all"), this)),
      m_none(new QPushButton(tr("Select &none"), this)),
      m_count(new QLabel(this)) {
    setWindowTitle(tr("Loading Large File"));
    setWindowIcon(IconSet::applicationIcon());
    buildLayout();
    m_filter->installEventFilter(this);
    connect(m_filter, &QLineEdit::textChanged, this, &COptionTreeDlg::filterChanged);
    connect(m_all, &QPushButton::clicked, this, [this] { m_tree->setVisibleChecked(true); });
    connect(m_none, &QPushButton::clicked, this, [this] { m_tree->setVisibleChecked(false); });
    connect(m_tree, &OptionTree::optionToggled, this, &COptionTreeDlg::collect);
    showCount();
}

void COptionTreeDlg::buildLayout() {
    auto* intro = new QLabel(tr("This file is large. Choose the channels to load."), this);
    intro->setWordWrap(true);
    auto* label = new QLabel(tr("&Filter:"), this);
    label->setBuddy(m_filter);
    m_filter->setClearButtonEnabled(true);
    m_filter->setPlaceholderText(tr("Part of a channel's name"));
    m_filter->setAccessibleName(tr("Filter"));
    m_tree->setAccessibleName(tr("Channels"));
    for (QPushButton* button : {m_all, m_none})
        button->setAutoDefault(false);
    auto* box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    box->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* filterRow = new QHBoxLayout;
    filterRow->addWidget(label);
    filterRow->addWidget(m_filter, 1);
    auto* choiceRow = new QHBoxLayout;
    choiceRow->addWidget(m_all);
    choiceRow->addWidget(m_none);
    choiceRow->addStretch(1);
    choiceRow->addWidget(m_count);
    auto* column = new QVBoxLayout(this);
    column->addWidget(intro);
    column->addLayout(filterRow);
    column->addWidget(m_tree, 1);
    column->addLayout(choiceRow);
    column->addSpacing(6);
    column->addWidget(box);
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 64, metrics.lineSpacing() * 30);
}

std::vector<std::string> COptionTreeDlg::choose(const std::vector<std::string>& offered) {
    offer(offered);
    m_filter->clear();
    m_filter->setFocus(Qt::OtherFocusReason);
    exec();
    return chosen();
}

void COptionTreeDlg::offer(const std::vector<std::string>& offered) {
    m_offered = offered;
    m_chosen.assign(offered.size(), false);
    m_firstEqual.clear();
    std::unordered_map<std::string_view, std::size_t> places;
    std::vector<Option> options;
    options.reserve(m_offered.size());
    for (std::size_t i = 0; i < m_offered.size(); ++i) {
        m_firstEqual.push_back(places.try_emplace(m_offered[i], i).first->second);
        options.push_back(optionOf(m_offered[i]));
    }
    m_tree->clear();
    m_tree->addOptions(m_tree->addGroup(tr("Channels")), options);
    showCount();
}

void COptionTreeDlg::collect(int /*group*/, int index, bool checked) {
    m_chosen[m_firstEqual[static_cast<std::size_t>(index)]] = checked;
    showCount();
}

std::vector<std::string> COptionTreeDlg::chosen() const {
    std::vector<std::string> labels;
    for (std::size_t i = 0; i < m_offered.size(); ++i)
        if (m_chosen[i]) labels.push_back(m_offered[i]);
    return labels;
}

void COptionTreeDlg::filterChanged(const QString& text) {
    m_tree->setFilter(text);
    m_all->setText(text.isEmpty() ? tr("&Select all") : tr("&Select all shown"));
    m_none->setText(text.isEmpty() ? tr("Select &none") : tr("Select &none shown"));
    showCount();
}

void COptionTreeDlg::showCount() {
    m_count->setText(
        tr("%L1 of %L2 channels chosen").arg(m_tree->checkedCount()).arg(m_offered.size()));
}

bool COptionTreeDlg::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_filter || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool toTree = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down;
    if (toTree) m_tree->focusFirstOption();
    // The first Escape clears the filter, the next one closes the dialog.
    const bool clears = key == Qt::Key_Escape && !m_filter->text().isEmpty();
    if (clears) m_filter->clear();
    return toTree || clears;
}

} // namespace pellam
