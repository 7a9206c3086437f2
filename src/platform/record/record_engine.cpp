#include "zendara/record_engine.hpp"
