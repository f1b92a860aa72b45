// Writes examples/walk.bvh to standard output: a person who walks two strides in two seconds. The
// path of the feet is given and the legs are placed to reach it; trunk and arms swing along.
// Lengths are in centimetres; y is up, z is forward, and the left hand is at positive x.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kDegree = kPi / 180;

constexpr int kFramesPerSecond = 30;
constexpr int kFramesPerStride = 30;
constexpr int kFrames = 2 * kFramesPerStride;

constexpr double kStrideLength = 128;
constexpr double kStancePart = 0.6;  // of a stride, for each foot

constexpr double kThigh = 43;
constexpr double kShin = 42;
constexpr double kHipsHeight = 93.8;
constexpr double kAnkleHeight = 8;
constexpr double kHeelBehindAnkle = 5;
constexpr double kBallBeforeAnkle = 13;

struct Vector {
    double x = 0, y = 0, z = 0;
};

Vector operator+(Vector a, Vector b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
Vector operator-(Vector a, Vector b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
Vector operator*(double factor, Vector a) { return {factor * a.x, factor * a.y, factor * a.z}; }

// Multiplies column vectors from the left; m[row][column].
struct Rotation {
    double m[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
};

Rotation operator*(const Rotation& a, const Rotation& b) {
    Rotation product;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column) {
            product.m[row][column] = 0;
            for (int k = 0; k < 3; ++k) product.m[row][column] += a.m[row][k] * b.m[k][column];
        }
    return product;
}

Vector operator*(const Rotation& r, Vector v) {
    return {r.m[0][0] * v.x + r.m[0][1] * v.y + r.m[0][2] * v.z,
            r.m[1][0] * v.x + r.m[1][1] * v.y + r.m[1][2] * v.z,
            r.m[2][0] * v.x + r.m[2][1] * v.y + r.m[2][2] * v.z};
}

Rotation inverse(const Rotation& r) {
    Rotation transposed;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column) transposed.m[row][column] = r.m[column][row];
    return transposed;
}

// The angles of one joint in a frame, in radians, in the order of its channels: z, x, y.
struct Angles {
    double z = 0, x = 0, y = 0;
};

Rotation rotation(Angles a) {
    const double cz = std::cos(a.z), sz = std::sin(a.z);
    const double cx = std::cos(a.x), sx = std::sin(a.x);
    const double cy = std::cos(a.y), sy = std::sin(a.y);
    const Rotation z{{{cz, -sz, 0}, {sz, cz, 0}, {0, 0, 1}}};
    const Rotation x{{{1, 0, 0}, {0, cx, -sx}, {0, sx, cx}}};
    const Rotation y{{{cy, 0, sy}, {0, 1, 0}, {-sy, 0, cy}}};
    return z * x * y;
}

Angles angles(const Rotation& r) {
    return {std::atan2(-r.m[0][1], r.m[1][1]), std::asin(r.m[2][1]),
            std::atan2(-r.m[2][0], r.m[2][2])};
}

// ---- The body ----

struct BodyJoint {
    const char* name;
    int parent;
    Vector offset;
    // Where the last bone of a chain ends; zero inside a chain.
    Vector end = {};
};

enum Place { kHips, kSpine, kWaist, kChest, kNeck, kHead, kCrown, kLeft, kRight = kLeft + 12 };
// The joints of an arm and of a leg, counted from kLeft or kRight.
enum SidePlace { kShoulder, kArm, kForearm, kHand, kThumb, kIndex, kRing };
enum LegPlace { kUpperLeg = kRing + 1, kLowerLeg, kFoot, kToes, kToeTips };
constexpr int kJoints = kRight + 12;

std::vector<BodyJoint> makeBody() {
    std::vector<BodyJoint> body{
        {"Hips", -1, {0, 0, 0}},
        {"Spine", kHips, {0, 9, -1}},
        {"Waist", kSpine, {0, 12, -1}},
        {"Chest", kWaist, {0, 13, 0}},
        {"Neck", kChest, {0, 17, 0.5}},
        {"Head", kNeck, {0, 8, 1.5}},
        {"Crown", kHead, {0, 18, 0}, {0, 1, 0}},
    };
    for (const int side : {kLeft, kRight}) {
        const bool left = side == kLeft;
        const double out = left ? 1 : -1;
        const auto name = [left](const char* l, const char* r) { return left ? l : r; };
        body.insert(
            body.end(),
            {{name("LeftShoulder", "RightShoulder"), kChest, {3 * out, 13, 0}},
             {name("LeftArm", "RightArm"), side + kShoulder, {14 * out, -1, -1}},
             {name("LeftForearm", "RightForearm"), side + kArm, {out, -28, 0}},
             {name("LeftHand", "RightHand"), side + kForearm, {0, -25, 0}},
             {name("LeftThumb", "RightThumb"), side + kHand, {0, -3, 3}, {0, -5, 2}},
             {name("LeftIndex", "RightIndex"), side + kHand, {0, -9, 2}, {0, -8, 0}},
             {name("LeftRing", "RightRing"), side + kHand, {0, -9, -1.5}, {0, -7.5, 0}},
             {name("LeftUpperLeg", "RightUpperLeg"), kHips, {9 * out, -3, 0}},
             {name("LeftLowerLeg", "RightLowerLeg"), side + kUpperLeg, {0, -kThigh, 0}},
             {name("LeftFoot", "RightFoot"), side + kLowerLeg, {0, -kShin, 0}},
             {name("LeftToes", "RightToes"), side + kFoot, {0, 1 - kAnkleHeight, kBallBeforeAnkle}},
             {name("LeftToeTips", "RightToeTips"), side + kToes, {0, -0.5, 6}, {0, 0, 1}}});
    }
    return body;
}

// ---- The walk. A foot's phase is 0 when its heel comes down and 1 when it does again. ----

double ease(double part) { return part * part * (3 - 2 * part); }

// From `from` to `to` while `phase` goes from `begin` to `end`.
double blend(double phase, double begin, double end, double from, double to) {
    if (phase <= begin) return from;
    if (phase >= end) return to;
    return from + (to - from) * ease((phase - begin) / (end - begin));
}

// The angle by which the toes point up from the heel, in radians.
double footPitch(double phase) {
    if (phase < 0.3) return blend(phase, 0, 0.1, 18, 0) * kDegree;
    if (phase < kStancePart) return blend(phase, 0.3, 0.65, 0, -58) * kDegree;
    const double atToeOff = blend(kStancePart, 0.3, 0.65, 0, -58);
    return blend(phase, kStancePart, 0.95, atToeOff, 18) * kDegree;
}

// The ankle of a foot on the ground, which rolls over its heel, sole and ball; `phase` is below
// kStancePart. While the foot stands flat, its ankle is above z = 0.
Vector stanceAnkle(double phase) {
    const double pitch = footPitch(phase);
    const double contact = pitch > 0 ? -kHeelBehindAnkle : kBallBeforeAnkle;
    const Vector toAnkle = rotation({0, -pitch, 0}) * Vector{0, kAnkleHeight, -contact};
    return Vector{0, 0, contact} + toAnkle;
}

// The ankle of a foot in the air: a curve that joins both ends of the swing at their speeds.
Vector swingAnkle(double phase) {
    constexpr double kMoment = 1e-4;
    constexpr double kSwingPart = 1 - kStancePart;
    const Vector lift = stanceAnkle(kStancePart - kMoment);
    const Vector landing = stanceAnkle(0) + Vector{0, 0, kStrideLength};
    const Vector liftSpeed = (1 / kMoment) * (lift - stanceAnkle(kStancePart - 2 * kMoment));
    const Vector landingSpeed = (1 / kMoment) * (stanceAnkle(kMoment) - stanceAnkle(0));

    const double t = (phase - kStancePart) / kSwingPart;
    const double t2 = t * t, t3 = t2 * t;
    return (2 * t3 - 3 * t2 + 1) * lift + (3 * t2 - 2 * t3) * landing +
           (kSwingPart * (t3 - 2 * t2 + t)) * liftSpeed + (kSwingPart * (t3 - t2)) * landingSpeed;
}

// Where the ankle is at `strides` since the foot's heel came down at the origin.
Vector ankle(double strides) {
    const double phase = strides - std::floor(strides);
    const Vector along{0, 0, std::floor(strides) * kStrideLength};
    return along + (phase < kStancePart ? stanceAnkle(phase) : swingAnkle(phase));
}

struct Pose {
    Vector hips;
    std::array<Angles, kJoints> angles{};

    Angles& operator[](int joint) { return angles[static_cast<std::size_t>(joint)]; }
    const Angles& operator[](int joint) const { return angles[static_cast<std::size_t>(joint)]; }
};

// Bends hip and knee, the knee to the front, so that thigh and shin reach from the hip to the
// ankle, and turns the foot to `pitch`.
void placeLeg(Pose& pose, int side, Vector hip, Vector ankleInWorld, double pitch, double phase) {
    const Rotation hips = rotation(pose[kHips]);
    const Vector reach = inverse(hips) * (ankleInWorld - pose.hips) - hip;
    const double sideways = std::atan2(reach.x, -reach.y);
    const double down = std::hypot(reach.x, reach.y);
    const double length = std::min(std::hypot(down, reach.z), 0.999 * (kThigh + kShin));

    const double thighToLine =
        std::acos((kThigh * kThigh + length * length - kShin * kShin) / (2 * kThigh * length));
    const double knee =
        std::acos((kThigh * kThigh + kShin * kShin - length * length) / (2 * kThigh * kShin));
    const Angles upper{sideways, -(std::atan2(reach.z, down) + thighToLine), 0};
    const Angles lower{0, kPi - knee, 0};
    pose[side + kUpperLeg] = upper;
    pose[side + kLowerLeg] = lower;

    const Rotation leg = hips * rotation(upper) * rotation(lower);
    pose[side + kFoot] = angles(inverse(leg) * rotation({0, -pitch, 0}));
    // The toes stay on the ground while the heel rises, and straighten in the air.
    const double flat = std::min(pitch, 0.0);
    pose[side + kToes].x = flat * blend(phase, kStancePart, 0.75, 1, 0);
}

// An arm swings with the leg of the other side.
void placeArm(Pose& pose, int side, double phase) {
    const double out = side == kLeft ? 1 : -1;
    const double forward = -std::cos(2 * kPi * (phase - 0.03));
    pose[side + kShoulder].y = -3 * out * forward * kDegree;
    pose[side + kArm] = {8 * out * kDegree, (-21 * forward + 5) * kDegree, 0};
    pose[side + kForearm].x = -(20 + 11 * forward) * kDegree;
    pose[side + kHand] = {-4 * out * kDegree, -6 * kDegree, 0};
    pose[side + kThumb].x = -12 * kDegree;
    pose[side + kIndex].z = -10 * out * kDegree;
    pose[side + kRing].z = -18 * out * kDegree;
}

void placeTrunk(Pose& pose, double strides) {
    const double turn = 2 * kPi * strides;
    const double bob = -1.8 * std::cos(2 * (turn - 0.12 * kPi));
    const double sway = 2.0 * std::cos(turn - 0.6 * kPi);
    const double along = kStrideLength * (strides - 0.5 * kStancePart) + 11;
    pose.hips = {sway, kHipsHeight + bob, along};
    // The hips turn with the legs and the chest against them, so that the head looks ahead.
    const double twist = std::cos(turn) * kDegree;
    const double list = std::cos(turn - 0.5 * kPi) * kDegree;
    pose[kHips] = {2.5 * list, 2 * kDegree, -5 * twist};
    pose[kSpine] = {-1.5 * list, 1 * kDegree, 4 * twist};
    pose[kWaist] = {-1.5 * list, 1 * kDegree, 4 * twist};
    pose[kChest] = {-1 * list, -1 * kDegree, 4 * twist};
    pose[kNeck] = {1 * list, -2 * kDegree, -4 * twist};
    pose[kHead] = {0.5 * list, (-1 + std::cos(2 * turn)) * kDegree, -3 * twist};
}

Pose poseAt(double strides, const std::vector<BodyJoint>& body) {
    Pose pose;
    placeTrunk(pose, strides);
    for (const int side : {kLeft, kRight}) {
        // The right foot is half a stride ahead in its cycle and has come down half a stride back.
        const double lead = side == kLeft ? 0 : 0.5;
        const double own = strides + lead;
        const double phase = own - std::floor(own);
        const Vector track{side == kLeft ? 6.5 : -6.5, 0, -lead * kStrideLength};
        const Vector hip = body[static_cast<std::size_t>(side) + kUpperLeg].offset;
        placeLeg(pose, side, hip, ankle(own) + track, footPitch(phase), phase);
        placeArm(pose, side, phase);
    }
    return pose;
}

// ---- The file ----

// Four digits, which come out the same on every machine, and no negative zero.
void printNumber(double value) {
    const double rounded = std::round(value * 1e4) / 1e4;
    std::printf(" %.4f", rounded == 0 ? 0.0 : rounded);
}

void printOffset(const std::string& indent, Vector offset) {
    std::printf("%sOFFSET", indent.c_str());
    for (const double value : {offset.x, offset.y, offset.z}) printNumber(value);
    std::printf("\n");
}

void printJoint(const std::vector<BodyJoint>& body, int joint, int depth) {
    const std::string indent(2 * static_cast<std::size_t>(depth), ' ');
    const std::string inner = indent + "  ";
    const BodyJoint& self = body[static_cast<std::size_t>(joint)];
    const bool root = self.parent < 0;
    std::printf("%s%s %s\n%s{\n", indent.c_str(), root ? "ROOT" : "JOINT", self.name,
                indent.c_str());
    printOffset(inner, self.offset);
    std::printf("%sCHANNELS %s\n", inner.c_str(),
                root ? "6 Xposition Yposition Zposition Zrotation Xrotation Yrotation"
                     : "3 Zrotation Xrotation Yrotation");
    bool isLast = true;
    for (int other = joint + 1; other < kJoints; ++other) {
        if (body[static_cast<std::size_t>(other)].parent != joint) continue;
        isLast = false;
        printJoint(body, other, depth + 1);
    }
    if (isLast) {
        std::printf("%sEnd Site\n%s{\n", inner.c_str(), inner.c_str());
        printOffset(inner + "  ", self.end);
        std::printf("%s}\n", inner.c_str());
    }
    std::printf("%s}\n", indent.c_str());
}

// The angles of this joint and all below it, in the order in which the hierarchy is printed.
void printAngles(const std::vector<BodyJoint>& body, const Pose& pose, int joint) {
    const Angles& a = pose[joint];
    for (const double angle : {a.z, a.x, a.y}) printNumber(angle / kDegree);
    for (int other = joint + 1; other < kJoints; ++other)
        if (body[static_cast<std::size_t>(other)].parent == joint) printAngles(body, pose, other);
}

}  // namespace

int main() {
    const std::vector<BodyJoint> body = makeBody();
    std::printf("HIERARCHY\n");
    printJoint(body, kHips, 0);
    std::printf("MOTION\nFrames: %d\nFrame Time: %.8f\n", kFrames, 1.0 / kFramesPerSecond);
    for (int frame = 0; frame < kFrames; ++frame) {
        const Pose pose = poseAt(static_cast<double>(frame) / kFramesPerStride, body);
        for (const double value : {pose.hips.x, pose.hips.y, pose.hips.z}) printNumber(value);
        printAngles(body, pose, kHips);
        std::printf("\n");
    }
}
