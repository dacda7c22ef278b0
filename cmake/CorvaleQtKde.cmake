# SPDX-License-Identifier: LGPL-2.1-or-later
# The three classes of the KDE Frameworks that hosts get with this library. They keep their own global names;
# each is offered by a forwarding header, and its library is a public link dependency.

set(pkgconfig_kde_libs "")
set(pkgconfig_kde_cflags "")
if(NOT CORVALE_QT_KDE_FRAMEWORKS)
  return()
endif()

target_link_libraries(corvale_qt PUBLIC KF5::ItemModels KF5::GuiAddons)
foreach(class KLinkItemSelectionModel KModelIndexProxyMapper KWordWrap)
  corvale_qt_forwarding_header(${class} "<${class}>")
endforeach()

# These frameworks have no .pc files to require.
foreach(framework ItemModels GuiAddons)
  string(APPEND pkgconfig_kde_libs " -lKF5${framework}")
  get_target_property(folders KF5::${framework} INTERFACE_INCLUDE_DIRECTORIES)
  foreach(folder IN LISTS folders)
    string(APPEND pkgconfig_kde_cflags " -I${folder}")
  endforeach()
endforeach()
