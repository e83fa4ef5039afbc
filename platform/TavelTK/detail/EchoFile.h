#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace mrl::detail {

/// A copy of an exchange's bytes in a file, for whoever looks into a failure. Made with rights 0600, since
/// the traffic may hold secrets.
class EchoFile {
public:
    /// @param mode begins with 'w' (replace) or 'a' (append).
    /// @throws TavelTKException echoFailed with the name and the system's reason; badArgument for a mode.
    EchoFile(const char* fileName, const char* mode, bool flushEach);

    /// @throws TavelTKException echoFailed.
    void write(std::string_view bytes);

private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::string m_name;
    std::unique_ptr<std::FILE, Closer> m_file;
    bool m_flushEach;
};

} // namespace mrl::detail
