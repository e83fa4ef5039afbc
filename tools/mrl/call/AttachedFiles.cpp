#include "call/AttachedFiles.h"

#include "call/JsonInput.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <stdexcept>

namespace mrl::tool {

namespace {

void readFile(const std::string& path, MRLDocumentOutput& to) {
    std::ifstream file(path, std::ios::binary);
    std::array<char, 65536> piece{};
    while (file.good()) {
        file.read(piece.data(), piece.size());
        if (file.gcount() > 0)
            to.write(piece.data(), static_cast<std::size_t>(file.gcount()));
    }
    if (!file.eof())
        throw std::runtime_error("the file '" + path + "' cannot be read");
}

void checkIds(const std::vector<AttachedFile>& files, const std::vector<std::string>& contentIds) {
    for (const std::string& id : contentIds)
        if (std::ranges::find(files, id, &AttachedFile::id) == files.end())
            throw JsonError("", "the request refers to the attachment '" + id +
                                    "'; give its file with --attach ID=FILE");
    for (const AttachedFile& file : files) {
        if (std::ranges::count(files, file.id, &AttachedFile::id) > 1)
            throw JsonError("", "the attachment '" + file.id + "' is given twice");
        if (std::ranges::find(contentIds, file.id) == contentIds.end())
            throw JsonError("", "nothing in the request refers to the attachment '" + file.id +
                                    R"('; put {"@cid": ID} where it belongs)");
    }
}

} // namespace

AttachedFile AttachedFile::parse(const std::string& argument) {
    const std::size_t equals = argument.find('=');
    if (equals == std::string::npos || equals == 0 || equals + 1 == argument.size())
        throw std::runtime_error("the attachment '" + argument +
                                 "' is not of the form ID=FILE or ID=FILE;TYPE");
    AttachedFile file;
    file.id = argument.substr(0, equals);
    const std::size_t semicolon = argument.rfind(';');
    const bool typed = semicolon != std::string::npos && semicolon > equals;
    file.path = argument.substr(equals + 1, typed ? semicolon - equals - 1 : std::string::npos);
    if (typed)
        file.mimeType = argument.substr(semicolon + 1);
    return file;
}

AttachedFiles::AttachedFiles(const std::vector<AttachedFile>& files,
                             const std::vector<std::string>& contentIds, bool compress)
    : m_files(files) {
    checkIds(m_files, contentIds);
    for (const AttachedFile& file : m_files) {
        MRLDocumentOutput& document = m_documents.emplace_back();
        document.init(0, compress ? 1 : 0);
        document.setMimeType(file.mimeType.c_str(), nullptr);
        readFile(file.path, document);
        m_list.emplace_back(file.id.c_str(), &document);
    }
}

} // namespace mrl::tool
