// The preferences file as it may be found on disk: any text, any length.
#include "Base64.h"
#include "CPreferencesDocument.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    CPreferencesDocument document(text);
    // Read and written back unchanged, the text is what it was, byte for byte.
    if (document.text() != text) std::abort();
    // A key set reads back as set, and a key left alone answers as before.
    const auto before = document.get("CurrBank");
    const std::vector<unsigned char> value(data, data + std::min<std::size_t>(size, 64));
    document.set("DefaultBank", value);
    const CPreferencesDocument again(document.text());
    if (again.get("DefaultBank") != PreferenceValue(value) || again.get("CurrBank") != before) std::abort();
    // Text that decodes encodes back to text that decodes to the same bytes.
    if (const auto bytes = spatara::base64Decode(text);
        bytes && spatara::base64Decode(spatara::base64Encode(*bytes)) != bytes)
        std::abort();
    return 0;
}
