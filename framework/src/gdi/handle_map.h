// Which object stands for a handle of the system, in one thread.
#pragma once

#include <afxver_.h>

#include <map>
#include <memory>
#include <utility>

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
    std::unique_ptr<Object>& temporary = m_temporary[handle];
    if (temporary == nullptr) temporary.reset(make());
    return temporary.get();
  }

  void SetPermanent(Handle handle, Object* object) { m_permanent[handle] = object; }

  // The object has no handle any more. Another object may have been attached to it since.
  void Remove(Handle handle, const Object* object) {
    const auto found = m_permanent.find(handle);
    if (found != m_permanent.end() && found->second == object) m_permanent.erase(found);
  }

  void DeleteTemporary() {
    // Moved out first: an object's destructor may come back here.
    for (auto& entry : std::exchange(m_temporary, {}))
      if (entry.second != nullptr) m_release(*entry.second);
  }

 private:
  Release m_release;
  std::map<Handle, Object*> m_permanent;
  std::map<Handle, std::unique_ptr<Object>> m_temporary;
};
