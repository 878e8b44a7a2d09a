#pragma once
// The locations an XSPF play list gives its tracks, read from the XML text
// without a full XML parser: the text of the first <location> element of
// each <track> (namespace prefixes aside), with character references and
// CDATA sections resolved. Comments, processing instructions and declarations
// are passed over. Never fails and never reads past the text: markup that is
// cut short or broken ends the search with what was found so far. Linear in
// the text's length. Any thread.

#include <string>
#include <string_view>
#include <vector>

std::vector<std::string> XspfTrackLocations(std::string_view xml);
