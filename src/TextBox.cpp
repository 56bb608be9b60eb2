#include "ui/TextBox.hpp"

namespace ui {

template class TextBox<numeric_policy, format_policy>;
template class TextBox<numeric_policy, FormatDatePolicy>;
template class TextBox<numeric_policy, empty_format_policy>;
template class TextBox<numeric_policy, default_format_policy>;
template class TextBox<numeric_policy_time, FormatTimePolicy>;
template class TextBox<numeric_policy_ipAddress, FormatIPAdressPolicy>;
template class TextBox<alpha_numeric_policy, empty_format_policy>;
template class TextBox<alpha_numeric_policy, default_format_policy>;
template class TextBox<default_numeric_policy, empty_format_policy>;
template class TextBox<default_numeric_policy, default_format_policy>;
// One name for the variant every class is allowed in, the prompts' own.
using EveryClass = default_alpha_numeric_policy<true, true, true>;
template class TextBox<EveryClass, empty_format_policy>;
template class TextBox<EveryClass, default_format_policy>;

} // namespace ui
