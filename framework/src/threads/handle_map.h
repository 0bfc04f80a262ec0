// Which object stands for a handle of the system, in one thread.
#pragma once

#include <afxver_.h>

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "threads/temporary_objects.h"

// Permanent objects are the program's own, which attach themselves. Temporary ones stand for
// handles that the program does not own; the map owns them until DeleteTemporary. A temporary
// object must have given up its handle when it is deleted: release(object) sees to that.
//
// A tree and not a hash table: what a thread has attached varies, and a table would keep the memory
// of its largest size.
template <class Object, class Handle>
class HandleMap {
 public:
  using Release = void (*)(Object&);

  explicit HandleMap(Release release) : m_release(release) {}
  ~HandleMap() { DeleteTemporary(); }
  HandleMap(const HandleMap&) = delete;
  HandleMap& operator=(const HandleMap&) = delete;

  Object* FindPermanent(Handle handle) const {
    const auto found = m_permanent.find(handle);
    return found != m_permanent.end() ? found->second : nullptr;
  }

  // The first object whose handle the test accepts; null: none.
  template <class Test>
  Object* FindPermanentIf(Test test) const {
    for (const auto& entry : m_permanent)
      if (test(entry.first)) return entry.second;
    return nullptr;
  }

  // The handle's object; make() makes a temporary one when it has none.
  template <class Make>
  Object* FromHandle(Handle handle, Make make) {
    if (Object* permanent = FindPermanent(handle)) return permanent;
    Temporary& temporary = m_temporary[handle];
    if (temporary.object == nullptr) temporary = {NewTemporary(), std::unique_ptr<Object>(make())};
    return temporary.object.get();
  }

  void SetPermanent(Handle handle, Object* object) { m_permanent[handle] = object; }

  // The object has no handle any more. Another object may have been attached to it since.
  void Remove(Handle handle, const Object* object) {
    const auto found = m_permanent.find(handle);
    if (found != m_permanent.end() && found->second == object) m_permanent.erase(found);
  }

  // Those made since a moment (see TemporaryMark).
  void DeleteTemporary(unsigned since = 0) {
    // Moved out first: an object's destructor may come back here.
    std::vector<std::unique_ptr<Object>> ended;
    for (auto entry = m_temporary.begin(); entry != m_temporary.end();) {
      if (since != 0 && !IsSince(entry->second.made, since)) {
        ++entry;
        continue;
      }
      if (entry->second.object != nullptr) ended.push_back(std::move(entry->second.object));
      entry = m_temporary.erase(entry);
    }
    for (const auto& object : ended) m_release(*object);
  }

 private:
  struct Temporary {
    unsigned made = 0;
    std::unique_ptr<Object> object;
  };

  Release m_release;
  std::map<Handle, Object*> m_permanent;
  std::map<Handle, Temporary> m_temporary;
};
