#include "data/access/write/column_properties.h"

#include <algorithm>
#include <array>
#include <optional>

#include "data/access/read/catalogue.h"
#include "data/access/read/cell.h"
#include "data/access/read/table_image.h"
#include "data/access/write/long_writer.h"
#include "data/access/write/row_writer.h"
#include "data/access/write/table_writer.h"

namespace veyra::access {

namespace {

constexpr std::array<Byte, 4> kMagic = {'M', 'R', '2', 0};
constexpr std::size_t kPartHead = 6;
constexpr std::uint16_t kNames = 0x80;
constexpr std::uint16_t kColumn = 1;
constexpr Byte kOfSchema = 1;
constexpr Byte kYesNoValue = 1;
constexpr Byte kTextValue = 12;
constexpr std::uint32_t kPageOfId = 0xFFFFFF;

struct Part {
  std::uint16_t Kind = 0;
  Bytes Body;
};

struct Properties {
  std::vector<std::string> Names;
  std::vector<Part> Parts;  ///< Without the names.
};

void AppendAll(Bytes& bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

Bytes NameBytes(const std::string& name) {
  const Bytes text = EncodeText(name, false);
  Bytes bytes;
  Append(bytes, static_cast<std::uint16_t>(text.size()));
  AppendAll(bytes, text);
  return bytes;
}

std::vector<std::string> NamesIn(ByteView part) {
  std::vector<std::string> names;
  for (std::size_t at = 0; at < part.size();) {
    const std::size_t length = part.U16(at);
    names.push_back(Utf8FromUtf16(part.Slice(at + 2, length)));
    at += 2 + length;
  }
  return names;
}

/// Nothing when the bytes are of another kind. Throws DamagedFile when they are cut short.
std::optional<Properties> Decode(const Bytes& bytes) {
  Properties properties;
  if (bytes.empty()) {
    return properties;
  }
  if (bytes.size() < kMagic.size() || !std::equal(kMagic.begin(), kMagic.end(), bytes.begin())) {
    return std::nullopt;
  }
  const ByteView view(bytes);
  for (std::size_t at = kMagic.size(); at < view.size();) {
    const std::size_t length = view.U32(at);
    if (length < kPartHead) {
      throw DamagedFile();
    }
    const std::uint16_t kind = view.U16(at + 4);
    const ByteView body = view.Slice(at, length).From(kPartHead);
    if (kind == kNames) {
      properties.Names = NamesIn(body);
    } else {
      properties.Parts.push_back({kind, body.Copy()});
    }
    at += length;
  }
  return properties;
}

void AppendPart(Bytes& bytes, std::uint16_t kind, const Bytes& body) {
  Append(bytes, static_cast<std::uint32_t>(kPartHead + body.size()));
  Append(bytes, kind);
  AppendAll(bytes, body);
}

Bytes Encode(const Properties& properties) {
  Bytes bytes(kMagic.begin(), kMagic.end());
  Bytes names;
  for (const std::string& name : properties.Names) {
    AppendAll(names, NameBytes(name));
  }
  AppendPart(bytes, kNames, names);
  for (const Part& part : properties.Parts) {
    AppendPart(bytes, part.Kind, part.Body);
  }
  return bytes;
}

std::uint16_t PlaceOfName(Properties& properties, const std::string& name) {
  auto& names = properties.Names;
  const auto found = std::find(names.begin(), names.end(), name);
  const auto place = static_cast<std::uint16_t>(found - names.begin());
  if (found == names.end()) {
    names.push_back(name);
  }
  return place;
}

void AppendProperty(Bytes& body, std::uint16_t name, Byte kind, const Bytes& value) {
  Append(body, static_cast<std::uint16_t>(8 + value.size()));
  body.push_back(kOfSchema);
  body.push_back(kind);
  Append(body, name);
  Append(body, static_cast<std::uint16_t>(value.size()));
  AppendAll(body, value);
}

/// A default as other programs read it: a number as it is, any other text in quotes.
std::string Expression(const Value& value) {
  const std::string text = ToText(value);
  if (ToDouble(value)) {
    return text;
  }
  std::string quoted = "\"";
  for (const char c : text) {
    quoted += c == '"' ? "\"\"" : std::string(1, c);
  }
  return quoted + "\"";
}

Part PropertiesOf(const ColumnDefinition& column, Properties& all) {
  const Bytes name = NameBytes(column.Name);
  Bytes body;
  Append(body, static_cast<std::uint32_t>(4 + name.size()));
  AppendAll(body, name);
  if (!IsNull(column.Default)) {
    AppendProperty(body, PlaceOfName(all, "DefaultValue"), kTextValue,
                   EncodeText(Expression(column.Default), false));
  }
  AppendProperty(body, PlaceOfName(all, "Required"), kYesNoValue, {0});
  if (column.Type == ColumnType::Text) {
    AppendProperty(body, PlaceOfName(all, "AllowZeroLength"), kYesNoValue,
                   {static_cast<Byte>(column.AllowsEmpty ? 1 : 0)});
  }
  return {kColumn, std::move(body)};
}

/// The home slot of a table's row in MSysObjects.
std::optional<RowPointer> RowOfTable(PageChanges& pages, PageNumber definition) {
  const TableImage image(pages, kCataloguePage);
  const TableLayout& layout = image.Layout();
  const ColumnLayout& id = layout.Columns.at(layout.FindColumn("Id"));
  const CellReader reader(pages);
  for (std::size_t i = 0; i < image.RowCount(); ++i) {
    const Cell cell = reader.Read(image.View(i), id);
    const auto* number = std::get_if<std::int64_t>(&cell);
    if (number != nullptr && (static_cast<std::uint32_t>(*number) & kPageOfId) == definition) {
      return HomeOf(image.Key(i));
    }
  }
  return std::nullopt;
}

}  // namespace

Bytes WithColumnProperties(const Bytes& old, const std::vector<ColumnDefinition>& columns) {
  std::optional<Properties> properties = Decode(old);
  if (!properties) {
    return old;
  }
  for (const ColumnDefinition& column : columns) {
    Part part = PropertiesOf(column, *properties);
    properties->Parts.push_back(std::move(part));
  }
  return Encode(*properties);
}

void AddPropertiesToCatalogue(PageChanges& pages, PageNumber definition,
                              const ColumnDefinition& column) {
  const std::optional<RowPointer> home = RowOfTable(pages, definition);
  TableWriter writer(pages, kCataloguePage);
  const TableLayout& table = writer.Layout();
  const std::size_t place = table.FindColumn("LvProp");
  if (!home || place == table.Columns.size() || !HasRoomForLong(table, table.Columns[place])) {
    return;
  }
  RawRow row = writer.Read(*home);
  const std::optional<Bytes> old = row[place];
  const Bytes properties =
      WithColumnProperties(old ? CellReader(pages).ReadLong(*old) : Bytes(), {column});
  row[place] = StoreLong(pages, table, table.Columns[place], properties);
  writer.Update(*home, row);
  if (old) {
    DropLong(pages, table, table.Columns[place], *old);
  }
}

}  // namespace veyra::access
