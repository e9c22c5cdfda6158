#include "database/ui/TextListModel.h"

#include "base/Utf8.h"

#include <algorithm>

namespace pellam {

namespace {

QString toShown(std::string_view bytes) {
    return QString::fromStdString(toUtf8(bytes));
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

} // namespace

void TextListModel::setTexts(TextList texts) {
    beginResetModel();
    m_texts = std::move(texts);
    m_folded.reset();
    endResetModel();
}

QString TextListModel::shown(std::size_t index) const {
    return toShown(m_texts[index]);
}

const TextList& TextListModel::folded() const {
    if (m_folded) return *m_folded;
    m_folded.emplace();
    std::string lower;
    for (std::size_t i = 0; i < m_texts.size(); ++i) {
        const auto text = m_texts[i];
        if (isAscii(text)) {
            lower.assign(text);
            for (char& c : lower)
                if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
            m_folded->add(lower);
        } else {
            m_folded->add(toShown(text).toCaseFolded().toStdString());
        }
    }
    return *m_folded;
}

QStringList TextListModel::containing(const QString& part, int limit) const {
    QStringList found;
    const auto& list = folded();
    const auto wanted = part.toCaseFolded().toStdString();
    for (auto i = list.findContaining(wanted); i < list.size() && found.size() < limit;
         i = list.findContaining(wanted, i + 1))
        found += shown(i);
    return found;
}

int TextListModel::rowOf(const QString& text) const {
    const auto& list = folded();
    const auto wanted = text.toCaseFolded().toStdString();
    for (auto i = list.findBeginning(wanted); i < list.size();
         i = list.findBeginning(wanted, i + 1))
        if (shown(i) == text) return static_cast<int>(i);
    return -1;
}

int TextListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_texts.size());
}

QVariant TextListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole)) return {};
    return shown(static_cast<std::size_t>(index.row()));
}

QModelIndexList TextListModel::match(const QModelIndex& start, int role, const QVariant& value,
                                     int hits, Qt::MatchFlags flags) const {
    const bool beginning = (flags & Qt::MatchTypeMask) == Qt::MatchStartsWith;
    if (hits != 1 || !beginning || !start.isValid())
        return QAbstractListModel::match(start, role, value, hits, flags);
    const auto& list = folded();
    const auto wanted = value.toString().toCaseFolded().toStdString();
    auto row = list.findBeginning(wanted, static_cast<std::size_t>(start.row()));
    if (row == list.size() && flags.testFlag(Qt::MatchWrap)) row = list.findBeginning(wanted);
    if (row == list.size()) return {};
    return {index(static_cast<int>(row))};
}

} // namespace pellam
