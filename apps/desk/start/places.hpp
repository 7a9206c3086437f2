// Where companies are: a folder of the machine, or a server by its connection.
#pragma once

#include <string>

namespace zendara {

bool IsServer(const std::string& place);
// For the user's eyes: "/srv/nominas", "postgresql://servidor/nominas".
std::string PlaceName(const std::string& place);
// "la carpeta /srv/nominas", "el servidor postgresql://servidor/nominas".
std::string PlaceWords(const std::string& place);
// Why a text that was typed is no connection to use, in words for the user; empty if it is one.
std::string WhyNoConnection(const std::string& text);

}  // namespace zendara
