#include "core/date_forms.h"

namespace zolt {

namespace {

std::string digits(int number, std::size_t places) {
    std::string text = std::to_string(number);
    if (text.size() < places)
        text.insert(0, places - text.size(), '0');
    return text.substr(text.size() - places);
}

} // namespace

std::array<std::string, kDateForms> dateForms(const Moment &moment, const MomentNames &names) {
    const std::string dd = digits(moment.day, 2);
    const std::string mm = digits(moment.month, 2);
    const std::string &mmm = names.shortMonth;
    const std::string &mmmm = names.month;
    const std::string yy = digits(moment.year, 2);
    const std::string yyyy = digits(moment.year, 4);
    const std::string h = std::to_string(moment.hour);
    const std::string hh = digits(moment.hour, 2);
    const std::string nn = digits(moment.minute, 2);
    const std::string ss = digits(moment.second, 2);
    const std::string date = dd + "-" + mm + "-" + yyyy;
    return {
        date,
        names.longDate,
        dd + " de " + mmmm + " de " + yyyy,
        dd + "-" + mm + "-" + yy,
        yyyy + "-" + mm + "-" + dd,
        dd + "-" + mmm + "-" + yy,
        dd + "/" + mm + "/" + yyyy,
        dd + " " + mmm + ", " + yyyy,
        dd + "/" + mm + "/" + yy,
        mmmm + " de " + yy,
        mmmm + "-" + yy,
        date + " " + h + ":" + nn,
        date + " " + h + ":" + nn + ":" + ss,
        h + ":" + nn,
        h + ":" + nn + ":" + ss,
        hh + ":" + nn,
        hh + ":" + nn + ":" + ss,
    };
}

} // namespace zolt
