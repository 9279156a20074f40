// SPDX-License-Identifier: GPL-3.0-or-later
#include "site/site.h"

#include <algorithm>
#include <array>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<std::pair<UserLevel, QStringView>, 4> LevelNames{{
    {UserLevel::Administrator, u"administrator"},
    {UserLevel::Installer, u"installer"},
    {UserLevel::Operator, u"operator"},
    {UserLevel::User, u"user"},
}};

Camera makeCamera(int recorder, int id, const QString &name, SceneKind scene, int variant)
{
    Camera camera;
    camera.id = id;
    camera.number = recorder * 100 + id;
    camera.sortId = id * 10;
    camera.name = name;
    camera.scene = scene;
    camera.variant = variant;
    camera.profiles = {{u"main"_s, QSize(1280, 720), 15, 2000}, {u"sub"_s, QSize(640, 360), 15, 500}};
    camera.tracks = {{1, u"Continuous"_s, u"track1"_s}};
    return camera;
}

RecorderInfo makeNorth()
{
    RecorderInfo north;
    north.id = 1;
    north.uid = 0x4f52494e4e525448ULL;
    north.name = u"North"_s;
    north.version = u"4.2.1.1873"_s;
    north.timeZone = "Europe/Berlin";
    north.posixTimeZone = u"CET-1CEST,M3.5.0,M10.5.0/3"_s;
    north.cameras = {
        makeCamera(1, 1, u"Main Entrance"_s, SceneKind::Lobby, 0),
        makeCamera(1, 2, u"North Road"_s, SceneKind::Road, 0),
        makeCamera(1, 3, u"Car Park West"_s, SceneKind::CarPark, 0),
        makeCamera(1, 4, u"Works Yard"_s, SceneKind::Yard, 0),
        makeCamera(1, 5, u"Platform 1"_s, SceneKind::Platform, 0),
        makeCamera(1, 6, u"Harbour Quay"_s, SceneKind::Harbour, 0),
    };
    north.cameras[1].ptz = true;
    north.cameras[3].mask = QRectF(0.68, 0.3, 0.26, 0.32);
    north.cameras[4].profiles[0].size = QSize(1366, 768);
    north.cameras[5].ptz = true;
    north.cameras[5].codec = VideoCodec::H265;
    north.cameras[0].tracks.append({2, u"On alarm"_s, u"track2"_s, true, RecordingPattern::OnAlarm});
    north.cameras[0].audio = AudioCodec::Mulaw;
    north.cameras[1].audio = AudioCodec::Aac;
    north.cameras[3].audio = AudioCodec::Alaw;
    north.cameras[1].tracks[0].recording = RecordingPattern::HourlyGap;
    north.cameras[2].tracks[0].recording = RecordingPattern::JustBegun;
    north.cameras[4].tracks[0].recording = RecordingPattern::Empty;
    north.cameras[5].tracks[0].recording = RecordingPattern::HourlyGap;
    return north;
}

RecorderInfo makeSouth()
{
    RecorderInfo south;
    south.id = 2;
    south.uid = 0x4f52494e53555448ULL;
    south.name = u"South"_s;
    south.version = u"4.2.0.1802"_s;
    south.timeZone = "America/New_York";
    south.posixTimeZone = u"EST5EDT,M3.2.0,M11.1.0"_s;
    south.cameras = {
        makeCamera(2, 1, u"Reception"_s, SceneKind::Lobby, 1),
        makeCamera(2, 2, u"Ring Road"_s, SceneKind::Road, 1),
        makeCamera(2, 3, u"Car Park East"_s, SceneKind::CarPark, 1),
        makeCamera(2, 4, u"Loading Yard"_s, SceneKind::Yard, 1),
        makeCamera(2, 5, u"Server Room Lobby"_s, SceneKind::Lobby, 2),
        makeCamera(2, 6, u"Old Harbour"_s, SceneKind::Harbour, 1),
    };
    south.cameras[2].ptz = true;
    south.cameras[3].codec = VideoCodec::Mjpeg;
    south.cameras[4].refusedUsers = QStringList{u"guest"_s};
    south.cameras[5].enabled = false;
    south.cameras[0].audio = AudioCodec::Alaw;
    south.cameras[2].audio = AudioCodec::Aac;
    south.cameras[1].tracks[0].recording = RecordingPattern::HourlyGap;
    south.cameras[1].tracks.append({2, u"On alarm"_s, u"track2"_s, true, RecordingPattern::OnAlarm});
    south.cameras[1].tracks.append({3, u"Events only"_s, u"track3"_s, false, RecordingPattern::OnAlarm});
    south.cameras[4].tracks[0].recording = RecordingPattern::OnAlarm;
    // The order on the page is not the order of the ids.
    south.cameras[0].sortId = 25;
    return south;
}

} // namespace

const Profile *Camera::profile(QStringView profileName) const
{
    const auto found = std::ranges::find(profiles, profileName, &Profile::name);
    return found == profiles.cend() ? nullptr : &*found;
}

const Track *Camera::track(int trackId) const
{
    const auto found = std::ranges::find(tracks, trackId, &Track::id);
    return found == tracks.cend() ? nullptr : &*found;
}

const Camera *RecorderInfo::camera(int cameraId) const
{
    const auto found = std::ranges::find(cameras, cameraId, &Camera::id);
    return found == cameras.cend() ? nullptr : &*found;
}

Camera *RecorderInfo::camera(int cameraId)
{
    const auto found = std::ranges::find(cameras, cameraId, &Camera::id);
    return found == cameras.end() ? nullptr : &*found;
}

Camera *RecorderInfo::addCamera(const QString &cameraName)
{
    if (cameras.size() >= MaximumCameras)
        return nullptr;
    int free = 1;
    while (camera(free))
        ++free;
    cameras.append(makeCamera(id, free, cameraName, SceneKind(free % 6), free / 6));
    return &cameras.last();
}

QString levelName(UserLevel level)
{
    return std::ranges::find(LevelNames, level, &std::pair<UserLevel, QStringView>::first)->second.toString();
}

std::optional<UserLevel> levelFromName(QStringView name)
{
    const auto found = std::ranges::find(LevelNames, name, &std::pair<UserLevel, QStringView>::second);
    return found == LevelNames.end() ? std::nullopt : std::optional(found->first);
}

Site Site::builtIn()
{
    Site site;
    site.groupUid = u"b8f9d0c2-5d0e-4a6f-9d27-6f3f51d2a001"_s;
    site.groupName = u"Demo Site"_s;
    site.recorders = {makeNorth(), makeSouth()};
    for (RecorderInfo &recorder : site.recorders) {
        for (Camera &camera : recorder.cameras) {
            if (camera.ptz)
                camera.motor = std::make_shared<PtzMotor>();
        }
    }
    site.users = {
        {1, u"admin"_s, u"orrin-admin"_s, UserLevel::Administrator},
        {2, u"operator"_s, u"orrin-operator"_s, UserLevel::Operator},
        {3, u"guest"_s, u"orrin-guest"_s, UserLevel::User},
    };
    return site;
}

} // namespace orrin::demo
