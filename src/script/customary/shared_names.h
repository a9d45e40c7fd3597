#pragma once

#include "script/customary/page_program.h"

namespace quorvane::customary {

/// Joins the two languages of a page that has both, or JScript alone: its script is made ready, and
/// the program runs it (at its start, or at its end as `isPageLanguage`) and tells it what names
/// of the program it may use:
///
///     [%procedure] "Greet", GetRef("Greet")
///     [%variable] "total", GetRef("%get total"), GetRef("%put total")
///     [%script]
void joinScript(PageProgram& page, bool isPageLanguage);

}  // namespace quorvane::customary
