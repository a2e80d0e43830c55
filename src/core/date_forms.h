#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace zolt {

/// A moment by the clock on the wall: months and days from 1, hours 0 to 23.
struct Moment {
    int year;
    int month;
    int day;
    int hour;
    int minute;
    int second;
};

/// What the system's language says to a moment, in bytes of code page 1252.
struct MomentNames {
    std::string month;
    std::string shortMonth;
    std::string longDate;
};

inline constexpr std::size_t kDateForms = 17;

/// The moment in all forms, in the order of the list, in bytes of code page 1252.
std::array<std::string, kDateForms> dateForms(const Moment &moment, const MomentNames &names);

} // namespace zolt
