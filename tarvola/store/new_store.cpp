#include "tarvola/store/new_store.h"

#include <array>

#include "tarvola/ado/engine/embedded_store.h"
#include "tarvola/store/csv.h"
#include "tarvola/store/schema_files.h"

namespace tarvola {
namespace {

using ado::engine::StoreDefinition;
using ado::engine::TableContent;

struct ProfileColumn {
  std::string_view column;
  std::string FilerProfile::*value;
};

// Name and address stand under two names each, since some parts of the system read the one and some the other.
constexpr std::array profileColumns{
    ProfileColumn{"NPWP", &FilerProfile::npwp},
    ProfileColumn{"NAMA_WP_PARTNER", &FilerProfile::name},
    ProfileColumn{"ALAMAT_WP_PARTNER", &FilerProfile::address},
    ProfileColumn{"NAMA_WP_PROFILE", &FilerProfile::name},
    ProfileColumn{"ALAMAT", &FilerProfile::address},
    ProfileColumn{"KOTA_WP", &FilerProfile::city},
    ProfileColumn{"KODE_POS", &FilerProfile::postcode},
    ProfileColumn{"TELEPON", &FilerProfile::phone},
    ProfileColumn{"FAX", &FilerProfile::fax},
    ProfileColumn{"EMAIL", &FilerProfile::mail},
    ProfileColumn{"NPWP_TTD_TRV", &FilerProfile::signerNpwp},
    ProfileColumn{"Nm_TTD_TRV", &FilerProfile::signerName},
    ProfileColumn{"NPWP_KU_TTD_TRV", &FilerProfile::attorneyNpwp},
    ProfileColumn{"NM_KU_TTD_TRV", &FilerProfile::attorneyName},
    ProfileColumn{"JABATAN_TTD_BP", &FilerProfile::slipSignerOffice},
    ProfileColumn{"NM_TTD_BP", &FilerProfile::slipSignerName},
    ProfileColumn{"NKKPP", &FilerProfile::taxOffice},
};

TableContent profileContent(const FilerProfile& profile) {
  TableContent content{.table = "PROFILE", .columns = {}, .rows = {{}}};
  for (const auto& [column, value] : profileColumns) {
    content.columns.emplace_back(column);
    content.rows.front().push_back(profile.*value);
  }
  return content;
}

/// "rows/BURSA.csv" holds the rows of BURSA, its first line the columns.
TableContent deliveredContent(std::string_view fileName, std::string_view csv) {
  const std::size_t nameStart = fileName.rfind('/') + 1;
  TableContent content{.table = std::string(fileName.substr(nameStart, fileName.rfind('.') - nameStart)),
                       .columns = {},
                       .rows = store::readCsv(csv)};
  content.columns = std::move(content.rows.front());
  content.rows.erase(content.rows.begin());
  return content;
}

std::string_view script(std::string_view name) {
  for (const store::SchemaFile& file : store::schemaFiles()) {
    if (file.name == name) return file.content;
  }
  return {};
}

StoreDefinition newStore(const FilerProfile& profile) {
  StoreDefinition definition{.scripts = {script("tables.sql"), script("indexes.sql")}, .contents = {}};
  for (const store::SchemaFile& file : store::schemaFiles()) {
    if (!file.name.starts_with("rows/")) continue;
    definition.contents.push_back(deliveredContent(file.name, file.content));
  }
  definition.contents.push_back(profileContent(profile));
  return definition;
}

}  // namespace

void createStore(const std::string& path, const FilerProfile& profile) {
  ado::engine::createEmbeddedStore(path, newStore(profile));
}

}  // namespace tarvola
