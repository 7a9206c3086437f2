// A record as a form shows it, and the calculation behind a box, as documents to keep.
#pragma once

#include <string>
#include <vector>

#include "print/document_writer.hpp"
#include "print/page_flow.hpp"
#include "zendara/forms/form.hpp"
#include "zendara/ports.hpp"

namespace zendara::print {

// What the form says of where it is and whose record it shows.
Heading HeadingOf(const Form& form, const std::string& created);

// Every field and grid of the form, page after page of its tabs, two fields beside each other as far as they fit. A
// group in which nothing is filled in shows its title alone.
Document RecordDocument(const Form& form, const std::string& created, const TextMeasure& measure);

// `text`: the words of the box, above the steps; what they ask is left out. The last row is the result.
Document DetailDocument(const Heading& heading, const std::string& text, const std::vector<BoxDetail>& rows,
                        const TextMeasure& measure);

}  // namespace zendara::print
