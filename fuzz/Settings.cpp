// The settings file, on any bytes: nothing of it is lost, and what is written is read back.

#include "settings/IniFile.h"

#include <cstddef>
#include <cstdint>
#include <string>

using namespace pellam;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    IniFile file;
    file.parse(text);
    const bool endsInLineFeed = text.empty() || text.back() == '\n';
    if (file.text() != text + (endsInLineFeed ? "" : "\n")) __builtin_trap();

    // The input also serves as key and value, cut in the middle.
    const std::string key = "software/" + text.substr(0, size / 2);
    const std::string value = text.substr(size / 2);
    for (const std::string& name : file.names("software"))
        (void)file.bytesValue("software/" + name);
    file.setText("software/text", value);
    file.setBytes("software/bytes", value);
    file.setText(key, value);
    IniFile again;
    again.parse(file.text());
    if (again.textValue("software/text") != file.textValue("software/text")) __builtin_trap();
    if (key != "software/text" && again.textValue("software/text") != value) __builtin_trap();
    if (key != "software/bytes" && again.bytesValue("software/bytes") != value) __builtin_trap();
    return 0;
}
