// The preferences file as it may be found on disk: any text, any length.
#include "Base64.h"
#include "PreferencesFormat.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    int badLine = 0;
    const auto values = parsePreferences(text, badLine);
    if (values)
    {
        // Whatever was read writes back to the same values.
        int again = 0;
        if (parsePreferences(formatPreferences(*values), again) != values) std::abort();
    }
    // Text that decodes encodes back to text that decodes to the same bytes.
    if (const auto bytes = base64Decode(text); bytes && base64Decode(base64Encode(*bytes)) != bytes)
        std::abort();
    return 0;
}
