#pragma once

namespace KelvaLR {

/// Makes one visitor of several functions, one for each case of a variant.
template <typename... Functions>
struct Overloaded : Functions...
{
    using Functions::operator()...;
};

} // namespace KelvaLR
