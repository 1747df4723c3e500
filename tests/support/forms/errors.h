// Run-time errors that only a forms runtime reports.
#pragma once

#include <cstdint>

#include "frame/values/runtime_error.h"

namespace vorla::forms {

inline constexpr std::uint16_t noSuchElement = 340, notAnArray = 343, objectUnloaded = 364,
                               invalidPropertyValue = 380, invalidIndex = 381, readOnlyProperty = 383,
                               controlNotFound = 730;

}  // namespace vorla::forms
