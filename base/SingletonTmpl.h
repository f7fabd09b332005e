// Process-wide objects, made on first use.
#pragma once

#include <memory>

namespace NRQUtility {

/// Mix-in for a class that exists once. The object is made by the first Instance() and dies at
/// process exit, where it touches neither a widget nor a service. Thread: user interface; the
/// access isn't guarded.
template <class T> class SingletonTmpl {
public:
    virtual ~SingletonTmpl() = default;

    [[nodiscard]] static T& Instance() {
        std::unique_ptr<T>& holder = Holder();
        if (!holder) {
            holder.reset(new T);
        }
        return *holder;
    }
    /// Whether the object was made already.
    [[nodiscard]] static bool HasInstance() { return Holder() != nullptr; }
    /// Ends the object before the process does; the next Instance() makes a new one.
    static void ReleaseInstance() { Holder().reset(); }

protected:
    SingletonTmpl() = default;

private:
    static std::unique_ptr<T>& Holder() {
        static std::unique_ptr<T> holder;
        return holder;
    }
};

} // namespace NRQUtility
