// A unit converter between a camera's integers and those that a control shows.
#ifndef MOX_IMOXCAMCONFIGINTCONVERTER_H
#define MOX_IMOXCAMCONFIGINTCONVERTER_H

namespace MoxGenParam {
class Int;
}

namespace MoxGui {

/**
 * Converts between the unit in which the camera counts and the unit in which a slider spin box shows it.
 *
 * Implemented by the owner of a mapper, which must outlive the bindings that it is given to. Asked on the GUI thread.
 */
class IMoxCamConfigIntConverter
{
public:
    /** The control's value for a camera value; also asked for the parameter's limits and its increment. */
    virtual long ToControl(long value, MoxGenParam::Int *param) = 0;
    /** The camera value for what the user has set. */
    virtual long ToDevice(long value, MoxGenParam::Int *param) = 0;

protected:
    ~IMoxCamConfigIntConverter() = default;
};

} // namespace MoxGui

#endif
