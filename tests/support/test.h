// Test support: one include for every test of the logic.
#pragma once

#include "foundation/log.h"
#include "support/expect_error.h"
#include "support/fixture.h"
#include "support/system_files.h"

#include <initializer_list>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantor {

using namespace test; // a test reads as the room that it stands in
using Texts = std::vector<std::string>;

/// What a function makes of each input, each with a bar behind it: a table of cases in two lists.
template <class Input, class Function>
std::string each(Function&& function, std::initializer_list<Input> inputs) {
    std::ostringstream results;
    for (const Input& input : inputs) {
        results << function(input) << '|';
    }
    return results.str();
}

} // namespace vantor
