# SPDX-License-Identifier: GPL-3.0-or-later
# The images that the module's components expect from an application, at the root of its resources, and under viewer/ those
# of the viewer itself.

set(orrin_viewer_icons
  Playback_FastForward.svg
  Playback_FastForward_Active.svg
  Playback_Live.svg
  Playback_Live_Active.svg
  Playback_PlayPause.svg
  Playback_PlayPause_Active_1.svg
  Playback_PlayPause_Active_2.svg
  Playback_Rewind.svg
  Playback_Rewind_Active.svg
  arrow_left.svg
  arrow_right.svg
  details.svg
  ic_exit_to_app_black_24px.svg
  orrinsdk/widgets/images/Cross_Icon.svg
  orrinsdk/widgets/images/ptzf/PTZF_DownArrowButton_Normal.svg
  ptzf.svg
  settings.svg
  viewer/begin.svg
  viewer/calendar.svg
  viewer/cameras.svg
  viewer/end.svg
  viewer/events.svg
  viewer/export.svg
  viewer/forward.svg
  viewer/fullscreen.svg
  viewer/help.svg
  viewer/layouts.svg
  viewer/live.svg
  viewer/next.svg
  viewer/now.svg
  viewer/pause.svg
  viewer/play.svg
  viewer/previous.svg
  viewer/rewind.svg
  viewer/settings.svg
  viewer/silent.svg
  viewer/site.svg
  viewer/snapshot.svg
  viewer/sound.svg
  viewer/statistics.svg
  viewer/step_back.svg
  viewer/step_forward.svg
  viewer/synchronous.svg
  viewer/window.svg
  viewer/zones.svg
  viewer/zoom_in.svg
  viewer/zoom_out.svg
)

# orrin_add_viewer_icons(<target>): embeds the images into the target under ":/".
set(orrin_viewer_icons_folder "${CMAKE_CURRENT_LIST_DIR}")
function(orrin_add_viewer_icons target)
  list(TRANSFORM orrin_viewer_icons PREPEND "${orrin_viewer_icons_folder}/" OUTPUT_VARIABLE files)
  qt_add_resources(${target} viewer_icons PREFIX "/" BASE "${orrin_viewer_icons_folder}" FILES ${files})
endfunction()
