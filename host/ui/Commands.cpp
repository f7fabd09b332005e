#include "host/ui/Commands.h"

namespace host {

using namespace Qt::StringLiterals;

const std::vector<CommandRow>& CommandTable() {
    static const QString file = u"文件(&F)"_s;
    static const QString console = u"控制台(&C)"_s;
    static const QString view = u"视图(&V)"_s;
    static const QString reminders = u"提醒(&R)"_s;
    static const QString help = u"帮助(&H)"_s;
    static const std::vector<CommandRow> rows = {
        {Command::NewProject,
         file,
         u"新建工程..."_s,
         u"project"_s,
         Qt::CTRL | Qt::Key_N,
         u"在数据文件夹里建一个新工程并打开它"_s,
         {}},
        {Command::Import, file, u"导入照片..."_s, u"import"_s, Qt::CTRL | Qt::Key_I,
         u"把一个文件夹里的照片导入当前工程，也可以把文件夹拖到窗口上"_s, u"导入照片"_s, true},
        {Command::ImportDrawing,
         file,
         u"导入图纸..."_s,
         u"drawing"_s,
         Qt::CTRL | Qt::SHIFT | Qt::Key_I,
         u"把 PDF 图纸导入当前工程，也可以把文件拖到窗口上"_s,
         {}},
        {Command::Bin, file, u"回收站..."_s, u"bin"_s, Qt::CTRL | Qt::Key_B,
         u"查看并恢复 30 天内删除的照片和问题"_s, u"回收站"_s},
        {Command::RecordVersions,
         file,
         u"记录版本..."_s,
         u"issue"_s,
         Qt::CTRL | Qt::Key_H,
         u"查看、比较并恢复各位置富文本记录的历史版本"_s,
         {}},
        {Command::Drafts,
         file,
         u"草稿箱..."_s,
         u"edit"_s,
         Qt::CTRL | Qt::SHIFT | Qt::Key_D,
         u"查看并恢复 30 天内未保存的富文本"_s,
         {}},
        {Command::Setup,
         file,
         u"设置..."_s,
         u"settings"_s,
         Qt::CTRL | Qt::Key_Comma,
         u"工程、人员、标识、标签、楼层、轴线和图纸"_s,
         {},
         true},
        {Command::OpenFolder,
         file,
         u"打开数据文件夹"_s,
         u"folder"_s,
         {},
         u"在文件管理器中打开数据文件夹"_s,
         {}},
        {Command::Quit, file, u"退出"_s, {}, Qt::CTRL | Qt::Key_Q, u"结束客户端"_s, {}, true},
        {Command::BimConsole, console, u"BIM模型照片"_s, u"photo"_s, Qt::CTRL | Qt::Key_1,
         u"在控制台中管理BIM模型照片"_s, u"BIM模型照片"_s, true},
        {Command::PdfConsole, console, u"图纸照片"_s, u"drawing"_s, Qt::CTRL | Qt::Key_2,
         u"在控制台中管理平面图纸照片"_s, u"图纸照片"_s},
        {Command::IssueConsole, console, u"TN问题"_s, u"issue"_s, Qt::CTRL | Qt::Key_3,
         u"在控制台中管理TN问题"_s, u"TN问题"_s},
        {Command::RaiseIssue, console, u"登记问题..."_s, u"issue"_s,
         Qt::CTRL | Qt::SHIFT | Qt::Key_N, u"在当前工程里登记一个新问题：名称、构件、描述和图片"_s,
         u"登记问题"_s, true},
        {Command::OpenByCode,
         console,
         u"按二维码打开问题..."_s,
         u"search"_s,
         Qt::CTRL | Qt::Key_O,
         u"从图片中读取二维码，定位并打开它的问题"_s,
         {}},
        {Command::PlacePhotos,
         console,
         u"所选轴线交点的照片"_s,
         u"locate"_s,
         Qt::CTRL | Qt::Key_4,
         u"只列出平面图中所选轴线交点的照片"_s,
         {},
         true},
        {Command::FloorIssues,
         console,
         u"本楼层的TN问题"_s,
         u"plan"_s,
         Qt::CTRL | Qt::Key_5,
         u"只列出平面图中所示楼层的TN问题"_s,
         {}},
        {Command::DrawingPhotos,
         console,
         u"当前图纸的照片"_s,
         u"drawing"_s,
         Qt::CTRL | Qt::Key_6,
         u"只列出当前图纸的照片"_s,
         {}},
        {Command::ExportList,
         console,
         u"输出列表..."_s,
         u"download"_s,
         Qt::CTRL | Qt::SHIFT | Qt::Key_E,
         u"把控制台中搜索到的列表（所有页）输出为 Excel 工作簿或 CSV 文件"_s,
         {},
         true},
        {Command::Inbox,
         console,
         u"待归档照片..."_s,
         u"photo"_s,
         Qt::CTRL | Qt::Key_7,
         u"列出没有楼层或没有标识的照片，成批归档"_s,
         {},
         true},
        {Command::FileTicked,
         console,
         u"批量归档..."_s,
         u"edit"_s,
         Qt::CTRL | Qt::SHIFT | Qt::Key_G,
         u"为控制台中勾选的行一次设定楼层、轴线、标识、标签和状态"_s,
         {}},
        {Command::PlanFace,
         view,
         u"平面图"_s,
         u"plan"_s,
         Qt::CTRL | Qt::Key_P,
         u"在窗口中央显示楼层平面图"_s,
         {}},
        {Command::DrawingFace,
         view,
         u"图纸"_s,
         u"drawing"_s,
         Qt::CTRL | Qt::Key_D,
         u"在窗口中央显示图纸"_s,
         {}},
        {Command::Refresh,
         view,
         u"刷新平面图"_s,
         u"refresh"_s,
         Qt::Key_F5,
         u"重新读取楼层、轴网和照片数"_s,
         {}},
        {Command::ClearMessages,
         view,
         u"清除消息"_s,
         u"close"_s,
         Qt::CTRL | Qt::Key_M,
         u"关闭消息栏中的所有消息"_s,
         {}},
        {Command::CatchUp, reminders, u"新到提醒"_s, u"bell"_s, Qt::CTRL | Qt::Key_R,
         u"列出其他人新上传的照片和新提出的问题"_s, u"新到"_s},
        {Command::MarkAllRead,
         reminders,
         u"全部标为已读"_s,
         {},
         Qt::CTRL | Qt::SHIFT | Qt::Key_R,
         u"把新到提醒中的所有照片和问题标为已读"_s,
         {}},
        {Command::Keys, help, u"快捷键"_s, u"info"_s, Qt::Key_F1, u"列出所有快捷键"_s, {}},
        {Command::About, help, u"关于"_s, {}, {}, u"版本与数据文件夹"_s, {}},
    };
    return rows;
}

QString TipWithKey(const CommandRow& row) {
    return row.key.isEmpty()
               ? row.tip
               : u"%1（%2）"_s.arg(row.tip, row.key.toString(QKeySequence::NativeText));
}

QString KeysText() {
    QString text;
    for (const CommandRow& row : CommandTable()) {
        if (!row.key.isEmpty()) {
            text += u"%1\t%2\n"_s.arg(row.key.toString(QKeySequence::NativeText), row.text);
        }
    }
    return text + uR"(Ctrl+K	显示或隐藏标识面板
Ctrl+Shift+1	显示照片标识
Ctrl+Shift+3	显示问题标识
Ctrl+L	显示或隐藏操作记录
方向键	平面图：移到相邻的轴线交点
空格	平面图：打开所选交点的卡片
Enter	平面图：打开所选交点的标识；没有标识时列出其照片
菜单键	平面图：所选交点的标识和照片
PageUp / PageDown	平面图：切换楼层
方向键、空格	选择构件：移到相邻的构件，选中它
Ctrl+单击、Ctrl+空格	选择构件：加选或取消一个
Enter / Esc	选择构件：完成 / 取消
Esc	平面图：关闭卡片，放弃选择
方向键、+、-、0	图纸：移动、放大、缩小、显示整张
Ctrl+左、Ctrl+右	图纸：上一个、下一个检查点
Enter / 菜单键	图纸：打开所选检查点；列出可做的事
PageUp / PageDown	图纸：换页
F5	控制台：重新读取当前页)"_s;
}

} // namespace host
