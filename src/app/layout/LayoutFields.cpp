#include "app/layout/LayoutFields.h"

#include "delimited/layout/LayoutOptions.h"
#include "delimited/layout/LayoutText.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSpinBox>

#include <algorithm>
#include <limits>

namespace pellam {

namespace {

QString fromStd(const std::string& text) {
    return QString::fromStdString(text);
}

// The wishes that make every choice of a layout explicitly.
LayoutWishes wishesOf(const TextLayout& layout) {
    LayoutWishes wishes;
    wishes.separator = layout.dialect.separator;
    wishes.quote = layout.dialect.quote;
    wishes.decimal = layout.decimal;
    wishes.headingsLine = layout.headingsLine;
    wishes.unitsLine = layout.unitsLine;
    wishes.dataLine = layout.firstDataLine;
    wishes.timeColumns = layout.timeColumns;
    wishes.timeFormat = layout.timeForm.name();
    wishes.missing = layout.missing;
    return wishes;
}

QComboBox* choiceOf(const QStringList& texts, const QStringList& values) {
    auto* box = new QComboBox;
    for (qsizetype i = 0; i < texts.size(); ++i)
        box->addItem(texts[i], values[i]);
    return box;
}

} // namespace

LayoutFields::LayoutFields(const TextLayout& detected, std::int64_t lines, QWidget* parent)
    : QWidget(parent),
      m_detected(detected),
      m_encoding(new QLabel),
      m_sample(new QLabel) {
    auto* form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setRowWrapPolicy(QFormLayout::DontWrapRows);
    form->addRow(tr("Encoding:"), m_encoding);
    addChoices(*form, detected);
    addLines(*form, lines);
    addTimes(*form, detected);
}

void LayoutFields::addRow(QFormLayout& form, const QString& text, QWidget* field,
                          const char* option) {
    auto* label = new QLabel(text);
    // Bold text is wider: the column keeps the width of that, so that nothing moves.
    QFont bold = label->font();
    bold.setBold(true);
    QString plain = text;
    label->setMinimumWidth(QFontMetrics(bold).horizontalAdvance(plain.remove(u'&')) + 2);
    label->setBuddy(field);
    field->setAccessibleName(plain.chopped(1));
    field->setObjectName(QString::fromLatin1(option));
    form.addRow(label, field);
    m_rows.push_back({label, field, option});
}

void LayoutFields::addChoices(QFormLayout& form, const TextLayout& detected) {
    QStringList separators;
    for (const char sign : {',', ';', '\t', '|', Dialect::kBlankRuns, detected.dialect.separator})
        separators += fromStd(separatorName(sign));
    separators.removeDuplicates();
    m_separator = choiceOf(separators, separators);
    m_separator->setEditable(true);
    m_separator->setInsertPolicy(QComboBox::NoInsert);
    m_quote = choiceOf({tr("\" double"), tr("' single"), tr("none")},
                       {QStringLiteral("\""), QStringLiteral("'"), QStringLiteral("none")});
    m_decimal = choiceOf({tr("point"), tr("comma")}, {QStringLiteral("."), QStringLiteral(",")});
    addRow(form, tr("&Separator:"), m_separator, "separator");
    addRow(form, tr("&Quotation mark:"), m_quote, "quote");
    addRow(form, tr("&Decimal mark:"), m_decimal, "decimal");
    connect(m_separator, &QComboBox::currentTextChanged, this,
            [this](const QString& text) { take("separator", text); });
    connect(m_quote, &QComboBox::currentIndexChanged, this,
            [this] { take("quote", m_quote->currentData().toString()); });
    connect(m_decimal, &QComboBox::currentIndexChanged, this,
            [this] { take("decimal", m_decimal->currentData().toString()); });
}

void LayoutFields::addLines(QFormLayout& form, std::int64_t lines) {
    const auto last =
        static_cast<int>(std::clamp<std::int64_t>(lines, 1, std::numeric_limits<int>::max()));
    const auto add = [&](const QString& text, const char* option, int least) {
        auto* field = new QSpinBox;
        field->setRange(least, last);
        if (least == 0) field->setSpecialValueText(tr("none"));
        addRow(form, text, field, option);
        connect(field, &QSpinBox::valueChanged, this,
                [this, option](int line) { take(option, QString::number(line)); });
        return field;
    };
    m_headings = add(tr("&Headings line:"), "headings-line", 0);
    m_units = add(tr("&Units line:"), "units-line", 0);
    m_data = add(tr("First data &line:"), "data-line", 1);
}

void LayoutFields::addTimes(QFormLayout& form, const TextLayout& detected) {
    m_timeColumns = new QLineEdit;
    m_timeFormat = new QComboBox;
    m_timeFormat->setEditable(true);
    m_timeFormat->setInsertPolicy(QComboBox::NoInsert);
    m_timeFormat->setMinimumContentsLength(18);
    QStringList forms = {fromStd(detected.timeForm.name()), fromStd(detected.otherTimeForm.name())};
    for (const char* name :
         {"yyyy-MM-dd HH:mm:ss", "dd/MM/yyyy HH:mm:ss", "MM/dd/yyyy HH:mm:ss", "HH:mm:ss",
          "epoch-s", "epoch-ms", "elapsed-s", "elapsed-ms", "elapsed-clock", "decimal-year"})
        forms += QString::fromLatin1(name);
    forms.removeAll(QString());
    forms.removeDuplicates();
    m_timeFormat->addItems(forms);
    m_missing = new QLineEdit;
    m_missing->setPlaceholderText(tr("none"));
    // Some desktops' dark colours leave this one black.
    QPalette colours = m_missing->palette();
    QColor faint = colours.color(QPalette::Text);
    faint.setAlpha(128);
    colours.setColor(QPalette::PlaceholderText, faint);
    m_missing->setPalette(colours);
    addRow(form, tr("&Time columns:"), m_timeColumns, "time-columns");
    addRow(form, tr("Time &format:"), m_timeFormat, "time-format");
    m_sample->setWordWrap(true);
    m_sample->setTextFormat(Qt::PlainText);
    m_sample->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_sample->setMinimumHeight(3 * m_sample->fontMetrics().lineSpacing());
    m_sample->setObjectName(QStringLiteral("time-sample"));
    form.addRow(QString(), m_sample);
    addRow(form, tr("&Missing values:"), m_missing, "missing");
    connect(m_timeColumns, &QLineEdit::textChanged, this,
            [this](const QString& text) { take("time-columns", text); });
    connect(m_timeFormat, &QComboBox::currentTextChanged, this,
            [this](const QString& text) { take("time-format", text); });
    connect(m_missing, &QLineEdit::textChanged, this,
            [this](const QString& text) { take("missing", text); });
}

void LayoutFields::take(const char* option, const QString& value) {
    if (m_showing) return;
    LayoutWishes wishes = m_wishes;
    const bool wasWrong = !m_wrong.empty();
    if (LayoutOptions::take(option, value.trimmed().toStdString(), wishes)) {
        if (m_wrong == option) m_wrong.clear();
        if (wishes == m_wishes && !wasWrong) return;
        m_wishes = std::move(wishes);
    } else {
        m_wrong = option;
    }
    markWishes();
    Q_EMIT changed();
}

void LayoutFields::setWishes(const LayoutWishes& wishes) {
    m_wishes = wishes;
    m_wrong.clear();
    markWishes();
    Q_EMIT changed();
}

void LayoutFields::markWishes() {
    const auto told = LayoutOptions::listOf(m_wishes);
    const auto found = LayoutOptions::listOf(wishesOf(m_detected));
    for (const Row& row : m_rows) {
        const auto named = [&row](const auto& item) { return item.first == row.option; };
        const bool wished = std::any_of(told.begin(), told.end(), named);
        QFont font = row.label->font();
        font.setBold(wished);
        row.label->setFont(font);
        const auto detected = std::find_if(found.begin(), found.end(), named);
        const QString value = detected == found.end() || detected->second.empty()
                                  ? tr("none")
                                  : fromStd(detected->second);
        const QString tip =
            wished ? tr("Set by you. Detected: %1").arg(value) : tr("Detected: %1").arg(value);
        row.label->setToolTip(tip);
        row.field->setToolTip(tip);
        row.field->setAccessibleDescription(tip);
    }
}

// What is being typed stays as it is typed.
void LayoutFields::showText(QLineEdit& field, const std::string& text) {
    if (!field.hasFocus()) field.setText(fromStd(text));
}

void LayoutFields::showLayout(const TextLayout& layout) {
    const QScopedValueRollback showing(m_showing, true);
    m_encoding->setText(layout.encoding.empty() ? tr("unknown") : fromStd(layout.encoding));
    showText(*m_separator->lineEdit(), separatorName(layout.dialect.separator));
    const QString quote =
        layout.dialect.quote ? QString(QLatin1Char(layout.dialect.quote)) : QStringLiteral("none");
    m_quote->setCurrentIndex(m_quote->findData(quote));
    m_decimal->setCurrentIndex(m_decimal->findData(QString(QLatin1Char(layout.decimal))));
    m_headings->setValue(static_cast<int>(layout.headingsLine));
    m_headings->setSuffix(layout.headingLines > 1
                              ? tr(" to %1").arg(layout.headingsLine + layout.headingLines - 1)
                              : QString());
    m_units->setValue(static_cast<int>(layout.unitsLine));
    m_data->setValue(static_cast<int>(layout.firstDataLine));
    showText(*m_timeColumns, LayoutOptions::columnsText(layout.timeColumns));
    showText(*m_timeFormat->lineEdit(), layout.timeForm.name());
    m_timeFormat->setEnabled(!layout.timeColumns.empty());
    showText(*m_missing, LayoutOptions::textsText(layout.missing));
    markWishes();
}

void LayoutFields::showTime(const QString& inFile, const QString& meaning) {
    if (m_wrong == "time-format") {
        m_sample->setText(tr("Such as dd/MM/yyyy HH:mm, epoch-ms or elapsed-s"));
    } else if (m_wrong == "time-columns") {
        m_sample->setText(tr("Numbers of columns such as 1, 2, or none"));
    } else if (inFile.isEmpty()) {
        m_sample->setText(tr("No time: rows are counted"));
    } else if (meaning.isEmpty()) {
        m_sample->setText(tr("%1 can not be read as a time").arg(inFile));
    } else {
        m_sample->setText(tr("%1 is read as\n%2").arg(inFile, meaning));
    }
}

} // namespace pellam
