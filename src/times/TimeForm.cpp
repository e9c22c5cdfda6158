#include "times/TimeForm.h"

#include "times/TimeItems.h"
#include "times/TimeUnit.h"

namespace pellam {

std::optional<TimeForm> TimeForm::parse(std::string_view name) {
    TimeForm form;
    form.m_name = name;
    if (name == "decimal-year") {
        form.m_kind = Kind::DecimalYear;
    } else if (name == "elapsed-clock" || name == "elapsed-m:s") {
        form.m_kind = Kind::Elapsed;
    } else if (timeUnit(name)) {
        form.m_kind = name.starts_with("epoch") ? Kind::Epoch : Kind::Elapsed;
    } else if (const auto items = timeItems(name)) {
        form.m_kind = items->dateEnd > 0 ? Kind::Calendar : Kind::TimeOfDay;
    } else {
        return {};
    }
    return form;
}

std::string momentText(const TimeMoment& moment, const TimeForm& form) {
    if (form.kind() == TimeForm::Kind::Elapsed) return elapsedText(moment);
    const std::string text = calendarText(moment);
    return form.kind() == TimeForm::Kind::TimeOfDay ? text.substr(text.find(' ') + 1) : text;
}

} // namespace pellam
