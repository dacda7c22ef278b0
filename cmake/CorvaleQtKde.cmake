# SPDX-License-Identifier: LGPL-2.1-or-later
# The three classes of the KDE Frameworks that hosts get with this library. They keep their own global names, and
# each is offered by a forwarding header. The library itself does not need them: a host gets their libraries with
# this one where they are installed, and asks for them by the component KDEFrameworks where it cannot do without.

foreach(class KLinkItemSelectionModel KModelIndexProxyMapper KWordWrap)
  corvale_qt_forwarding_header(${class} "<${class}>")
endforeach()

# The installed package makes a target of this name too (corvale_qtConfig.cmake.in).
target_link_libraries(corvale_qt INTERFACE $<TARGET_NAME_IF_EXISTS:Corvale_Qt::KDEFrameworks>)
if(KF5ItemModels_FOUND AND KF5GuiAddons_FOUND)
  add_library(corvale_qt_kde_frameworks INTERFACE)
  add_library(Corvale_Qt::KDEFrameworks ALIAS corvale_qt_kde_frameworks)
  target_link_libraries(corvale_qt_kde_frameworks INTERFACE KF5::ItemModels KF5::GuiAddons)
endif()
