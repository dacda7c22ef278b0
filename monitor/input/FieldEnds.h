// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace Monitor {

//! Where the fields of a text end: the places of its commas and line feeds, in their order.
class FieldEnds
{
public:
    //! Finds those of a text shorter than 4 GB. Keeps the memory of the text before.
    void find(std::string_view text);
    //! Finds those of a line, which has no line feed, and adds its own end.
    void findInLine(std::string_view line);
    std::size_t size() const { return m_size; }
    const std::uint32_t *data() const { return m_places.data(); }
    std::uint32_t operator[](std::size_t i) const { return m_places[i]; }

private:
    void add(std::uint32_t place);
    void makeRoom(std::size_t places);

    std::vector<std::uint32_t> m_places; //!< keeps its size, since growing would cost more
    std::size_t m_size = 0;
};

} // namespace Monitor
