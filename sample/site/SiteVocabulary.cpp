#include "sample/site/SiteVocabulary.h"

#include "site/SetupState.h"

#include <QStringList>

#include <array>

namespace sample {

using namespace Qt::StringLiterals;

const std::vector<SamplePerson>& SamplePeople() {
    static const std::vector<SamplePerson> people{
        {u"张工"_s, {5, 21, 22, 38, site::kRightSetup}}, // everything
        {u"李工"_s, {5, 21, 22}},                        // may not show and hide
        {u"王工"_s, {5, 21, 38}},                        // may not delete
        {u"刘监理"_s, {21, 22, 38}},                     // may not add labels
        {u"陈质检"_s, {5, 21}},                          // may edit only
        {u"赵总"_s, {}},                                 // reads
    };
    return people;
}

const std::vector<SampleMark>& SampleMarks() {
    static const std::vector<SampleMark> marks{
        {1, u"质量"_s, 0x3643F4}, {2, u"安全"_s, 0x0098FF}, {3, u"进度"_s, 0xF39621},
        {4, u"渗漏"_s, 0xB0279C}, {5, u"验收"_s, 0x50AF4C}, {6, u"材料"_s, 0x485579},
        {7, u"机电"_s, 0xD4BC00}, {8, u"其他"_s, 0x9E9E9E},
    };
    return marks;
}

const std::vector<SampleProject>& SampleProjects() {
    static const std::vector<SampleProject> projects{
        {u"滨江花园三期"_s, 1, -2, 12, 9, 6},
        {u"科创中心A座"_s, 2, -1, 8, 7, 4},
    };
    return projects;
}

const std::vector<QString>& SampleLabels() {
    static const std::vector<QString> labels{
        u"钢筋工程"_s, u"模板工程"_s, u"混凝土工程"_s, u"砌体工程"_s, u"防水工程"_s,
        u"脚手架"_s,   u"临边防护"_s, u"给排水"_s,     u"消防"_s,     u"隐蔽验收"_s,
        u"样板"_s,     u"需复查"_s,   u"甲方关注"_s,   u"成品保护"_s,
    };
    return labels;
}

const std::vector<SampleComponent>& SampleComponents() {
    static const std::vector<SampleComponent> components{
        {u"框架柱 KZ-1"_s, u"600×600"_s},    {u"框架梁 KL-5"_s, u"300×650"_s},
        {u"剪力墙 Q-3"_s, u"厚 250"_s},      {u"楼板 B-12"_s, u"厚 120"_s},
        {u"砌体墙 QT-2"_s, u"加气块 200"_s}, {u"楼梯 LT-1"_s, u"第 2 跑"_s},
        {u"消防主管 DN150"_s, u"热镀锌"_s},  {u"桥架 300×100"_s, u"强电"_s},
        {u"构造柱 GZ-4"_s, u"240×240"_s},    {u"外墙保温"_s, u"岩棉 80"_s},
    };
    return components;
}

QString SampleWorkset() {
    return u"城东片区"_s;
}

QString RoofFloor() {
    return u"屋面"_s;
}

namespace {

constexpr std::array kRoomWords{u"砌体墙灰缝不饱满", u"墙面抹灰空鼓", u"窗洞口尺寸偏差",
                                u"地面找平层起砂",   u"室内净高复核", u"砌块墙顶砖斜砌不到位"};
constexpr std::array kCorridorWords{u"管线综合标高冲突", u"走道吊顶内桥架安装", u"支吊架间距超标",
                                    u"走道墙面平整度", u"防火门洞口预留偏位"};
constexpr std::array kGarageWords{u"地库顶板渗水", u"柱角护角未安装",   u"车库地坪裂缝",
                                  u"消防管道支架", u"人防门框安装偏差", u"集水坑周边积水"};
constexpr std::array kFacadeWords{u"外墙脚手架剪刀撑缺失", u"连墙件间距过大", u"安全网破损",
                                  u"外墙保温层施工",       u"外窗副框安装",   u"脚手板未满铺"};
constexpr std::array kRebarWords{u"板面钢筋间距偏大", u"钢筋保护层垫块缺失", u"柱插筋偏位",
                                 u"双层双向钢筋绑扎", u"负筋被踩弯",         u"钢筋搭接长度不足"};
constexpr std::array kFrameWords{u"主体结构进度",     u"塔吊吊装作业",     u"临边防护栏杆",
                                 u"混凝土浇筑前检查", u"模板支撑体系验收", u"楼层材料堆放"};
constexpr std::array kCrackWords{u"剪力墙竖向裂缝", u"填充墙与梁交接处开裂", u"楼板收缩裂缝",
                                 u"抹灰层龟裂"};
constexpr std::array kLeakWords{u"外墙渗水痕迹", u"墙体渗漏返碱", u"管根渗漏", u"地下室侧墙渗水"};
constexpr std::array kHoneycombWords{u"混凝土蜂窝麻面", u"梁侧露筋", u"柱根烂根", u"墙面局部孔洞"};
constexpr std::array kStairsWords{u"楼梯踏步高差", u"楼梯临时栏杆", u"休息平台标高偏差",
                                  u"梯段板底裂缝", u"踏步阳角破损"};
constexpr std::array kPitWords{u"基坑支护监测",     u"钢支撑轴力复核", u"坑底积水",
                               u"围护桩桩间土流失", u"冠梁施工",       u"临边堆载过大"};
constexpr std::array kPipesWords{u"消防泵房管道安装", u"阀门标识缺失", u"水泵减震垫安装",
                                 u"管道试压记录",     u"管道支架锈蚀", u"泵房地面排水不畅"};

using Words = std::span<const char16_t* const>;

[[nodiscard]] Words WordsOf(SceneKind kind) {
    switch (kind) {
    case SceneKind::Room:
        return kRoomWords;
    case SceneKind::Corridor:
        return kCorridorWords;
    case SceneKind::Garage:
        return kGarageWords;
    case SceneKind::Facade:
        return kFacadeWords;
    case SceneKind::Rebar:
        return kRebarWords;
    case SceneKind::Frame:
        return kFrameWords;
    case SceneKind::Crack:
        return kCrackWords;
    case SceneKind::Leak:
        return kLeakWords;
    case SceneKind::Honeycomb:
        return kHoneycombWords;
    case SceneKind::Stairs:
        return kStairsWords;
    case SceneKind::Pit:
        return kPitWords;
    case SceneKind::Pipes:
        return kPipesWords;
    }
    return kRoomWords;
}

[[nodiscard]] QString PickWord(Words words, Dice& dice) {
    return QString::fromUtf16(
        words[static_cast<size_t>(dice.Pick(static_cast<int>(words.size())))]);
}

constexpr std::array kFollowUps{u"已现场通知施工班组整改。",   u"请于三日内整改完毕并回复。",
                                u"按图纸及规范要求返工处理。", u"监理已到场确认。",
                                u"与设计沟通后再行处理。",     u"整改后由质检员复查。",
                                u"留存影像资料备查。",         u"同类部位请一并自查。"};
constexpr std::array kRemarks{
    u"实测值超出允许偏差，最大处约 15 mm，", u"范围约 2.4 m × 1.2 m，", u"较上周有所发展，",
    u"该部位第二次发现同类问题，",           u"班组交底不到位，",       u"材料进场验收资料齐全，"};
constexpr std::array kRemedies{u"已剔凿清理并用高强砂浆修补，养护七天后复查合格。",
                               u"已重新绑扎并补设垫块，监理复验通过。",
                               u"已注浆封堵，淋水试验 24 小时无渗漏。",
                               u"已补设剪刀撑和连墙件，经联合验收合格。",
                               u"已更换阀门并挂牌，管道二次试压合格。",
                               u"正在组织材料进场，预计本周内完成。",
                               u"已清理积水并加设排水沟，现场已恢复施工。"};

} // namespace

QString Finding(SceneKind kind, Dice& dice) {
    return PickWord(WordsOf(kind), dice);
}

QString Elaborate(const QString& finding, Dice& dice) {
    QString text = finding;
    text += u'，';
    if (dice.Chance(0.5F)) {
        text += PickWord(kRemarks, dice);
    }
    text += PickWord(kFollowUps, dice);
    if (dice.Chance(0.25F)) {
        text += PickWord(kFollowUps, dice);
    }
    return text;
}

QString Remedy(Dice& dice) {
    return PickWord(kRemedies, dice);
}

} // namespace sample
