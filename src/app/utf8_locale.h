#pragma once

namespace sonavo {

/// Uses the user's locale, but with texts in UTF-8: so are the names of files, and Qt complains about
/// anything else. To be called before there are threads and before the application object.
void useUtf8Locale();

} // namespace sonavo
