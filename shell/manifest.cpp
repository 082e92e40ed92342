#include "shell/manifest.h"

#include "platform/files.h"

namespace tarnwell {

// The system takes processorArchitecture by the letter, so these lines are not to be tidied.
const std::string_view kManifestText =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
    "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\r\n"
    "    <assemblyIdentity version=\"1.0.0.0\" processorArchitecture=\"X86\" name=\"WinXp\" "
    "type=\"win32\"/>\r\n"
    "    <description>XP Style</description>\r\n"
    "    <dependency>\r\n"
    "        <dependentAssembly>\r\n"
    "            <assemblyIdentity type=\"win32\" name=\"Microsoft.Windows.Common-Controls\" "
    "version=\"6.0.0.0\" processorArchitecture=\"X86\" publicKeyToken=\"6595b64144ccf1df\" "
    "language=\"*\"/>\r\n"
    "        </dependentAssembly>\r\n"
    "    </dependency>\r\n"
    "</assembly>\r\n"
    "\r\n";

ManifestCheck CheckManifest(Files& files, const std::string& path) {
  if (files.FileExists(path)) return ManifestCheck::kPresent;
  const bool written = files.Replace(path, kManifestText).ok();
  return written ? ManifestCheck::kWritten : ManifestCheck::kPresent;
}

}  // namespace tarnwell
