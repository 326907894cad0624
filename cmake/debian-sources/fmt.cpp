// SPDX-License-Identifier: MIT
// The code that fmt's headers leave to a library, compiled only once.

#include <fmt/format-inl.h>

namespace fmt::detail {

template dragonbox::decimal_fp<float> dragonbox::to_decimal(float) noexcept;
template dragonbox::decimal_fp<double> dragonbox::to_decimal(double) noexcept;

template locale_ref::locale_ref(const std::locale&);
template std::locale locale_ref::get<std::locale>() const;
template thousands_sep_result<char> thousands_sep_impl(locale_ref);
template char decimal_point_impl(locale_ref);

template void buffer<char>::append(const char*, const char*);
template void
vformat_to(buffer<char>&, string_view, basic_format_args<buffer_context<char>>, locale_ref);

}
