// The record engine as objects.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <utility>

#include "adapters/entry/members.hpp"
#include "zendara/engines.hpp"
#include "zendara/record_engine.hpp"

struct zendara_engine final : zendara::Named<zendara_engine> {
  explicit zendara_engine(zendara::Store opened)
      : engine(std::move(opened.engine)), files(std::move(opened.files)), folder(std::move(opened.folder)) {}
  static std::span<const zendara::Member<zendara_engine>> Members();

  const std::shared_ptr<zendara::Engine> engine;
  const std::unique_ptr<zendara::Files> files;
  const std::string folder;  // of a server, which is the folder; empty: it is the host's

  // What a host gives as the folder; of a server it may be null.
  std::string FolderOf(const char* given) const { return given || folder.empty() ? zendara::TakeText(given) : folder; }
};

struct zendara_database final : zendara::Named<zendara_database> {
  explicit zendara_database(std::shared_ptr<zendara::Database> opened) : database(std::move(opened)) {}
  static std::span<const zendara::Member<zendara_database>> Members();

  const std::shared_ptr<zendara::Database> database;
};

struct zendara_recordset final : zendara::Named<zendara_recordset> {
  explicit zendara_recordset(std::shared_ptr<zendara::Recordset> opened) : recordset(std::move(opened)) {}
  static std::span<const zendara::Member<zendara_recordset>> Members();

  const std::shared_ptr<zendara::Recordset> recordset;
};

namespace zendara {

// The default engine of the machine, for reading and writing.
Counted<zendara_engine> MakeEngineObject();

}  // namespace zendara
