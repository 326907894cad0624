// SPDX-License-Identifier: MIT
#include "Translator/Translator.h"

#include "ForkHandlers.h"

#include <memory>
#include <mutex>
#include <utility>

namespace Tarvik {

namespace {

/// The installed catalogue. The lock guards the pointer only: catalogues are called and destroyed
/// without it, so that they may translate or install themselves.
class InstalledCatalogue {
public:
  InstalledCatalogue();

  std::shared_ptr<const Translator::Catalogue> get()
  {
    const std::lock_guard lock(m_mutex);
    return m_catalogue;
  }

  void replaceBy(std::shared_ptr<const Translator::Catalogue> catalogue)
  {
    const std::lock_guard lock(m_mutex);
    m_catalogue.swap(catalogue);
  }

private:
  std::mutex m_mutex;
  std::shared_ptr<const Translator::Catalogue> m_catalogue;
};

/// Constructed when the library is loaded, destroyed after everything that was loaded later.
InstalledCatalogue installed;

/// A forked child has only the thread that forked it: if another one had the lock, nobody would
/// release the child's copy.
InstalledCatalogue::InstalledCatalogue()
{
  constexpr auto unlock = [] { installed.m_mutex.unlock(); };
  ForkHandlers::add([] { installed.m_mutex.lock(); }, unlock, unlock);
}

}

std::string
Translator::translate(const char* context, const char* text, const char* disambiguation, int count)
{
  if (const auto catalogue = installed.get()) {
    if (auto translation = (*catalogue)(context, text, disambiguation, count))
      return *std::move(translation);
  }
  return text != nullptr ? text : "";
}

void Translator::installCatalogue(Catalogue catalogue)
{
  installed.replaceBy(catalogue ? std::make_shared<const Catalogue>(std::move(catalogue))
                                : nullptr);
}

Translator::Catalogue Translator::chain(std::vector<Catalogue> catalogues)
{
  std::erase_if(catalogues, [](const Catalogue& each) { return !each; });
  return [links = std::move(catalogues)](const char* context, const char* text,
                                         const char* disambiguation,
                                         int count) -> std::optional<std::string> {
    for (const auto& each : links) {
      if (auto translation = each(context, text, disambiguation, count))
        return translation;
    }
    return std::nullopt;
  };
}

}
