#pragma once

#include "platform/controls/visit.h"
#include "platform/values/text.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

// What most of the headless tests look at and write with.

namespace klopfmeise {

namespace fs = std::filesystem;
using std::string_literals::operator""s;

} // namespace klopfmeise
