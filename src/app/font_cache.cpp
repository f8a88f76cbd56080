#include "font_cache.h"

#include "editor_surface.h"
#include "twips.h"

namespace velmora {

int Screen_Dpi() {
  const ScopedWindowDC screen(nullptr);
  return GetDeviceCaps(screen.get(), LOGPIXELSY);
}

HFONT FontCache::Get(const FontSpec& spec) {
  const Key key{spec.Name, spec.Size, spec.Bold};
  auto found = fonts_.find(key);
  if (found != fonts_.end()) return found->second.get();
  LOGFONTA description{};
  description.lfHeight = -MulDiv(spec.Size, dpi_, 72);
  description.lfWeight = spec.Bold ? FW_BOLD : FW_NORMAL;
  description.lfCharSet = DEFAULT_CHARSET;
  lstrcpynA(description.lfFaceName, spec.Name.c_str(), LF_FACESIZE);
  // No name: the font system picks a fixed-pitch face of its own.
  if (spec.Name == kAnyFixedPitchFont) description.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  return fonts_.emplace(key, ScopedFont(CreateFontIndirectA(&description))).first->second.get();
}

}  // namespace velmora
