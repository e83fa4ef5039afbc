#pragma once

#include "store/ObjectWriter.h"

namespace mrl::bus {

/// What a new store begins with.
class SampleContent {
public:
    SampleContent(Database& database, const StoreSeams& seams, ObjectWriter& writer)
        : m_database(database)
        , m_seams(seams)
        , m_writer(writer) {}

    /// The root and the containers that every store has: /content, /directory, /configuration,
    /// /capability.
    void placeFixtures();

    /// A small company: its people, data sources, packages, reports. One report cannot be read, one
    /// folder not entered, one folder not changed, so that every refusal can be seen.
    void placeSamples();

private:
    Database& m_database;
    const StoreSeams& m_seams;
    ObjectWriter& m_writer;
};

} // namespace mrl::bus
