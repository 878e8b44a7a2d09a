# A Debian package of what `cmake --install` puts in place (cpack -G DEB).
# Library dependencies come from dpkg-shlibdeps; GStreamer loads its decoders
# and outputs at run time, so the plugin packages are named here.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vantrelle)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The Vantrelle developers")
set(CPACK_PACKAGE_CONTACT "The Vantrelle developers <dev@vantrelle.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "catalogue, search and play music on disks and CDs")
set(CPACK_PACKAGE_DESCRIPTION
    "Vantrelle keeps a catalogue of a music collection that lives on many disks and
CDs: every folder with MP3, Ogg Vorbis or WMA files (FLAC, Musepack, Opus and
M4A on request), with each file's tags and audio properties. Volumes stay in
the catalogue when the disc is out, so the whole collection can be browsed,
searched, rated and annotated offline. A play list window plays through and
copies files, asking for each CD by name; vantrelle-cli is its console face.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# MP3 and FLAC (good), Ogg Vorbis and Opus (base), WMA and M4A (libav).
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "gstreamer1.0-plugins-base, gstreamer1.0-plugins-good, gstreamer1.0-libav")
# Musepack, and the ALSA output where no sound server runs.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "gstreamer1.0-plugins-bad, gstreamer1.0-alsa")
include(CPack)
