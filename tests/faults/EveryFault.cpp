#include "EveryFault.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <set>

#include "support/LongRun.h"
#include "zip/XUnzip.h"

namespace {

constexpr unsigned kMostCalls = 20000;

// The entries of an archive in one text; that it is none.
std::string EntriesOf(const std::string& path) {
  std::string name = path;
  const HZIP archive = OpenZipU(name.data(), 0, kZipFileName, nullptr);
  if (archive == nullptr) return "no archive";
  std::string entries;
  ZIPENTRY entry;
  for (int i = 0; GetZipItemA(archive, i, &entry) == kZipOk; ++i) {
    std::string bytes(static_cast<size_t>(entry.unc_size) + 1, 0);
    const unsigned size = static_cast<unsigned>(bytes.size());
    const bool isWhole = UnzipItem(archive, i, bytes.data(), size, kZipMemory) == kZipMore &&
                         UnzipItem(archive, i, bytes.data(), 1, kZipMemory) == kZipOk;
    bytes.pop_back();
    entries += std::string("[") + entry.name + "]" + (isWhole ? bytes : "damaged");
  }
  CloseZipU(archive);
  return entries;
}

std::set<std::string> TemporaryFiles() {
  std::set<std::string> names;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::filesystem::temp_directory_path()))
    names.insert(entry.path().filename().string());
  return names;
}

std::optional<std::string> ValueAt(const UserData& data, const std::string& name) {
  const auto found = data.find(name);
  return found == data.end() ? std::nullopt : std::optional(found->second);
}

std::string Describe(const UserData& data, const std::string& name) {
  return ValueAt(data, name).value_or("(none)").substr(0, 200);
}

class Loop {
 public:
  explicit Loop(const Work& work) : m_work(work) {
    const TempFolder folder;
    m_work.prepare(folder);
    m_before = Look(folder);
    EXPECT_TRUE(m_work.act(folder)) << "without a fault";
    m_after = Look(folder);
  }

  void Run(faults::Kind kind) const {
    // There are hundreds of allocations; the short run fails every third one.
    const unsigned step = kind == faults::Kind::kMemory && !IsLongRun() ? 3 : 1;
    for (unsigned n = 1; n <= kMostCalls; n += step) {
      if (!RunOnce(kind, n) || testing::Test::HasFailure()) return;
    }
    ADD_FAILURE() << "there seems to be no end of " << faults::NameOf(kind);
  }

 private:
  UserData Look(const TempFolder& folder) const {
    return m_work.look ? m_work.look(folder) : FilesOf(folder);
  }

  // Whether there was such a call.
  bool RunOnce(faults::Kind kind, unsigned n) const {
    const TempFolder folder;
    m_work.prepare(folder);
    const std::set<std::string> temporary = TemporaryFiles();
    bool done = false, happened = false, thrown = false;
    std::string function;
    {
      const faults::FailNth fault(kind, n);
      try {
        done = m_work.act(folder);
      } catch (...) {
        thrown = true;
      }
      happened = fault.Happened();
      function = fault.Function();
    }
    SCOPED_TRACE(std::string(faults::NameOf(kind)) + " " + std::to_string(n) + " " + function +
                 (done ? ": done" : ": failed"));
    EXPECT_FALSE(thrown);
    EXPECT_TRUE(done || happened);
    Check(Look(folder), done && (m_work.answersForAll || !happened));
    for (const std::string& name : TemporaryFiles())
      EXPECT_TRUE(temporary.contains(name)) << name << " is left";
    return happened;
  }

  void Check(const UserData& now, bool isAllNew) const {
    UserData names = m_before;
    names.insert(m_after.begin(), m_after.end());
    names.insert(now.begin(), now.end());
    for (const auto& [name, any] : names) {
      const auto value = ValueAt(now, name);
      if (value == ValueAt(m_after, name)) continue;
      if (m_work.goesFirst && !isAllNew && !value && m_work.goesFirst(name)) continue;
      if (m_work.isRight && value && m_work.isRight(*value)) continue;
      EXPECT_TRUE(!isAllNew && value == ValueAt(m_before, name))
          << name << " holds " << Describe(now, name) << "\nold: " << Describe(m_before, name)
          << "\nnew: " << Describe(m_after, name);
    }
    const auto holds = [](const UserData& data, const std::string& value) {
      return std::ranges::any_of(data, [&](const auto& entry) { return entry.second == value; });
    };
    for (const auto& [name, value] : m_before)
      EXPECT_TRUE(holds(now, value) || !holds(m_after, value)) << "lost: " << name;
  }

  const Work& m_work;
  UserData m_before, m_after;
};

}  // namespace

UserData FilesOf(const TempFolder& folder) {
  UserData data;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
    if (!entry.is_regular_file()) continue;
    const std::string name = entry.path().lexically_relative(folder.path()).string();
    data[name] = name.ends_with(".zip") ? EntriesOf(folder / name) : folder.Read(name);
  }
  return data;
}

void WithEveryFault(const Work& work, std::initializer_list<faults::Kind> kinds) {
  const Loop loop(work);
  for (const faults::Kind kind : kinds) loop.Run(kind);
}

void WithEveryFault(const Work& work) {
  const Loop loop(work);
  for (const faults::Kind kind : faults::kAllKinds) loop.Run(kind);
}
