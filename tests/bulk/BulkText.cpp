#include "tests/bulk/BulkText.h"

#include <QStringList>

namespace bulk {

using namespace Qt::StringLiterals;

namespace {

const QStringList& Words() {
    static const QStringList words =
        u"外墙 内墙 柱子 楼板 钢筋 混凝 模板 脚手 管线 桥架 风管 水管 电缆 配电 消防 喷淋 门窗 幕墙"
        " 屋面 地面 抹灰 涂料 瓷砖 吊顶 防水 保温 砌体 构造 圈梁 过梁 楼梯 栏杆 电梯 井道 设备 基础"
        " 承台 桩基 土方 回填 支护 降水 轴线 标高 偏差 裂缝 空鼓 渗漏 错台 蜂窝 麻面 露筋 锈蚀 变形"
        " 破损 缺失 松动 脱落 污染 堵塞 验收 整改 复查 合格 返工 修补 打磨 清理 封堵 加固 更换 调整"
        " 安装 焊接 螺栓 支架 阀门 法兰 接头 预埋 套管 留洞 防火 隔墙 龙骨 石膏 玻璃 铝板 石材 胶缝"
        " 沉降 观测 测量 放线 交底 样板 成品 保护 安全 文明"_s.split(u' ');
    return words;
}

const QStringList& People() {
    static const QStringList people =
        u"zhangwei wangfang lina liuyang chenjie yangmin zhaolei huangtao zhouqiang wuxia 张伟 王芳"
        " 李娜 刘洋 陈杰 杨敏 赵磊 黄涛 周强 吴霞 徐静 孙浩 胡军 朱琳 高峰 林涛 何平 郭亮 马超"
        " 罗丹"_s.split(u' ');
    return people;
}

} // namespace

quint64 BulkRandom::Next() {
    m_state += 0x9e3779b97f4a7c15ULL;
    quint64 z = m_state;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
    return z ^ (z >> 31);
}

qint32 BulkRandom::Below(qint32 count) {
    return static_cast<qint32>(Next() % static_cast<quint64>(count));
}

qint32 BulkRandom::Skewed(qint32 count) {
    const double even = static_cast<double>(Next() >> 11) / 9007199254740992.0;
    return static_cast<qint32>(even * even * count);
}

QString BulkPerson(BulkRandom& random) {
    return People()[random.Skewed(static_cast<qint32>(People().size()))];
}

QString BulkWord(qint32 number) {
    return Words()[number % Words().size()];
}

QString BulkPhotoName(BulkRandom& random, qint32 number) {
    const QString digits = QString::number(number).rightJustified(7, u'0');
    if (random.Below(4) == 0) {
        return u"IMG_"_s + digits + u".jpg"_s;
    }
    return BulkWord(random.Skewed(static_cast<qint32>(Words().size()))) + u'_' + digits + u".jpg"_s;
}

QString BulkDescription(BulkRandom& random) {
    QString text;
    if (random.Below(10) == 0) {
        return text;
    }
    const qint32 count = 6 + random.Below(9);
    for (qint32 i = 0; i < count; ++i) {
        text += BulkWord(random.Skewed(static_cast<qint32>(Words().size())));
    }
    return text;
}

QString BulkFloor(BulkRandom& random) {
    const qint32 floor = random.Below(32) - 3;
    return QString::number(floor >= 0 ? floor + 1 : floor);
}

} // namespace bulk
