#include "logs/admin_log_file.h"

#include <algorithm>

namespace quillon {

std::int32_t adminCount(const AdminHeader& header, AdminSection section) {
  switch (section) {
    case AdminSection::traderLimits:
      return header.traderLimitCount;
    case AdminSection::scripLimits:
      return header.scripLimitCount;
    case AdminSection::groupLimits:
      return header.groupLimitCount;
    case AdminSection::activities:
      break;
  }
  return header.activityCount;
}

std::int64_t adminTotal(const AdminHeader& header) {
  std::int64_t total = 0;
  for (const AdminSection section : adminSections) total += adminCount(header, section);
  return total;
}

bool measureAdminLog(Input& input, std::int64_t& fileSize) {
  if (!inputSeekEnd(input)) return false;
  fileSize = inputTell(input);
  return fileSize >= 0 && inputSeekStart(input);
}

// Where the section begins, from the start of the file. -1 where a count before it is below zero.
static std::int64_t sectionOffset(const AdminHeader& header, AdminSection section) {
  std::int64_t offset = sizeof(AdminHeader);
  for (const AdminSection before : adminSections) {
    if (before == section) break;
    const std::int64_t count = adminCount(header, before);
    if (count < 0) return -1;
    offset += count * static_cast<std::int64_t>(adminRecordSize(before));
  }
  return offset;
}

std::size_t adminRecordsHeld(const AdminHeader& header, AdminSection section, std::int64_t fileSize) {
  const std::int64_t count = adminCount(header, section), offset = sectionOffset(header, section);
  if (count <= 0 || offset < 0 || offset >= fileSize) return 0;
  const std::int64_t whole = (fileSize - offset) / static_cast<std::int64_t>(adminRecordSize(section));
  return static_cast<std::size_t>(std::min(count, whole));
}

std::size_t readAdminSection(Input& input, const AdminHeader& header, AdminSection section, void* block, std::size_t count) {
  const std::int64_t offset = sectionOffset(header, section);
  if (offset < 0 || !inputSeekStart(input) || !inputSkip(input, offset)) return 0;
  const std::size_t size = adminRecordSize(section);
  std::size_t done = 0;
  for (std::size_t left = count; left > 0;) {
    const std::size_t read = inputReadRecords(input, static_cast<char*>(block) + done * size, size, left);
    done += read;
    left -= read;
    if (left > 0) --left;  // one failed and was passed over; what follows it takes its place
  }
  return done;
}

static std::size_t hourOffset(AdminSection section) {
  constexpr std::size_t offsets[] = {offsetof(TraderLimitRec, hour), offsetof(ScripLimitRec, hour),
                                     offsetof(GroupLimitRec, hour), offsetof(ActivityRec, hour)};
  return offsets[static_cast<std::size_t>(section)];
}

RecordOrder adminOrder(AdminSection section, const void* records, std::size_t count, AdminSort sort) {
  const Records sorted = {records, adminRecordSize(section), count};
  if (sort == AdminSort::time) return orderOfRecords(sorted, {});
  // Every record begins with its trader.
  return orderOfRecords(sorted, {{KeyKind::number, 0, 4}, {KeyKind::time, hourOffset(section), 3}});
}

char adminOpLetter(std::int16_t opCode) {
  switch (opCode) {
    case 9:
      return 'A';
    case 11:
      return 'D';
    case 1:
    case 2:
    case 10:
    case 12:
    case 13:
    case 14:
    case 15:
      return 'U';
    case 16:
    case 17:
    case 18:
    case 19:
    case 20:
    case 21:
      return 'W';
    default:
      return '\0';
  }
}

std::string_view adminMessage(const TextField<48>& message) {
  const std::string_view text = message.view();
  return text.substr(0, text.find_first_of("\r\n"));
}

}  // namespace quillon
